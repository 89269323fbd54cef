#include "cli/Commande.h"

#include "unemployment/ComptageHeures.h"

#include "store/BaseDeDonnees.h"
#include "store/ErreursSQLite.h"

#include <QDir>
#include <QJsonDocument>

namespace corvane::cli {

int Commande::echec(Contexte& contexte, const QString& message)
{
    contexte.erreurs << "corvane-cli: " << message << Qt::endl;
    return ErreurUtilisateur;
}

int Commande::mauvaisUsage(Contexte& contexte, const QString& message) const
{
    contexte.erreurs << "corvane-cli: " << message << Qt::endl
                     << "usage : corvane-cli [--aujourdhui AAAA-MM-JJ] [--json] " << usage() << Qt::endl;
    return MauvaisUsage;
}

bool Commande::analyser(Contexte& contexte, Arguments& arguments, const QStringList& liste,
                        const QList<OptionAttendue>& options, int positionnels, int* code) const
{
    if (!arguments.analyser(liste, options)) {
        *code = mauvaisUsage(contexte, arguments.erreur());
        return false;
    }
    if (arguments.positionnels().size() != positionnels) {
        *code =
            mauvaisUsage(contexte, arguments.positionnels().size() < positionnels
                                       ? QStringLiteral("argument manquant")
                                       : QStringLiteral("argument en trop : %1").arg(arguments.positionnels().last()));
        return false;
    }
    return true;
}

void Commande::ecrireJson(Contexte& contexte, const QJsonObject& objet)
{
    contexte.sortie << QString::fromUtf8(QJsonDocument(objet).toJson(QJsonDocument::Indented));
    contexte.sortie.flush();
}

bool Commande::verifierMotDePasse(Contexte& contexte, const QString& chemin, int* code)
{
    const std::optional<Verrouillage> verrou = lireVerrouillage(contexte, chemin, code);
    if (!verrou)
        return false;
    if (verrou->accessible)
        return true;
    *code = echec(contexte, contexte.motDePasseDonne ? QStringLiteral("le mot de passe est incorrect.")
                                                     : QStringLiteral("ce fichier est protégé par un mot de passe : "
                                                                      "indiquez-le avec --mot-de-passe."));
    return false;
}

std::optional<Commande::Verrouillage> Commande::lireVerrouillage(Contexte& contexte, const QString& chemin, int* code)
{
    BaseDeDonnees base;
    if (!base.ouvrirEnLecture(chemin)) {
        *code = echec(contexte, QStringLiteral("Le fichier « %1 » ne peut pas être lu : %2")
                                    .arg(QDir::toNativeSeparators(chemin), base.derniereErreur()));
        return std::nullopt;
    }
    // A flag that cannot be read (the file in use) refuses the command: it never skips the password.
    Requete r(base, QStringLiteral("SELECT f_locked, f_password FROM file WHERE f_id = 1;"));
    const bool lu = r.suivante();
    if (!lu && ErreursSQLite::estOccupe(r.code())) {
        *code = echec(contexte, ErreursSQLite::fichierUtilise(chemin));
        return std::nullopt;
    }
    if (!lu || r.entier(0) != 1)
        return Verrouillage{false, true};
    return Verrouillage{true, contexte.motDePasseDonne && QString::fromUtf8(QByteArray::fromBase64(
                                                              r.texte(1).toLatin1())) == contexte.motDePasse};
}

std::optional<Commande::PlageDeDroits> Commande::lirePlageDeDroits(Contexte& contexte, Arguments& arguments,
                                                                  int* code) const
{
    // In the order of ComptageHeures::conditionsDesContrats.
    static const QStringList choix{"tous", "effectues", "planifies"};
    if (!arguments.exiger({"du", "au"})) {
        *code = mauvaisUsage(contexte, arguments.erreur());
        return std::nullopt;
    }
    const QString contrats = arguments.valeur("contrats", QStringLiteral("tous"));
    const int index = int(choix.indexOf(contrats));
    if (index < 0) {
        *code = mauvaisUsage(contexte, QStringLiteral("choix de contrats inconnu : « %1 » (choix : %2)")
                                           .arg(contrats, choix.join(", ")));
        return std::nullopt;
    }
    const auto du = arguments.date("du");
    const auto au = arguments.date("au");
    if (arguments.enErreur()) {
        *code = mauvaisUsage(contexte, arguments.erreur());
        return std::nullopt;
    }
    if (*au < *du) {
        *code = mauvaisUsage(contexte, QStringLiteral("la date --au ne peut pas précéder la date --du"));
        return std::nullopt;
    }
    return PlageDeDroits{*du, *au, ComptageHeures::conditionsDesContrats().at(index)};
}

} // namespace corvane::cli
