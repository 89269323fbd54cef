#include "exchange/ExportCsv.h"

#include "exchange/CsvWriter.h"
#include "store/BaseDeDonnees.h"
#include "store/ErreursSQLite.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>

#include <sqlite3.h>

namespace corvane {

namespace {

enum class Genre
{
    Texte,
    Entier,
    Nombre,
};

struct Champ
{
    int colonne; // in the statement
    Genre genre;
};

struct Source
{
    QString titre;
    QStringList entetes;
    QString requete;
    QList<Champ> champs;
};

const QList<Source>& lesSources()
{
    static const QList<Source> sources{
        {QStringLiteral("Frais"),
         {QStringLiteral("Catégorie"), QStringLiteral("Note"), QStringLiteral("Montant"), QStringLiteral("Date"),
          QStringLiteral("Remboursé")},
         QStringLiteral("SELECT ft_type, f_details, f_montant, f_date, f_rembourse FROM frais JOIN fraistypes ON "
                        "f_categorie = ft_id;"),
         {{0, Genre::Texte}, {1, Genre::Texte}, {2, Genre::Nombre}, {3, Genre::Texte}, {4, Genre::Entier}}},
        {QStringLiteral("Contrats payés"),
         {QStringLiteral("Employeur"), QStringLiteral("Date début"), QStringLiteral("Date fin"),
          QStringLiteral("Heures"), QStringLiteral("Salaire brut"), QStringLiteral("Salaire net"),
          QStringLiteral("Salaire net à payer")},
         QStringLiteral("SELECT c_debut_contrat, c_fin_contrat, c_nbre_heures, c_salaire_brut, c_salaire_net, "
                        "c_salaire_net_a_payer, c_employeur_id, e_raison_sociale FROM contrats JOIN employeurs ON "
                        "c_employeur_id = e_id WHERE c_paye;"),
         {{7, Genre::Texte},
          {0, Genre::Texte},
          {1, Genre::Texte},
          {2, Genre::Entier},
          {3, Genre::Nombre},
          {4, Genre::Nombre},
          {5, Genre::Nombre}}},
        {QStringLiteral("Historique Pôle Emploi"),
         {QStringLiteral("Date"), QStringLiteral("Montant")},
         QStringLiteral("SELECT ah_date, ah_montant FROM assedichistorique;"),
         {{0, Genre::Texte}, {1, Genre::Nombre}}},
        {QStringLiteral("Historique Congés Spectacles"),
         {QStringLiteral("Date"), QStringLiteral("Montant")},
         QStringLiteral("SELECT ch_date, ch_montant FROM congeshistorique;"),
         {{0, Genre::Texte}, {1, Genre::Nombre}}},
        {QStringLiteral("Historique Fiscalité"),
         {QStringLiteral("Date"), QStringLiteral("Montant")},
         QStringLiteral("SELECT fh_date, fh_montant FROM fiscalitehistorique;"),
         {{0, Genre::Texte}, {1, Genre::Nombre}}},
    };
    return sources;
}

// The C locale's shortest form that reads back as the same double, never with an exponent:
// "1234.5", "1000000", "0.1".
QString nombre(double valeur)
{
    return QLocale::c().toString(valeur, 'f', QLocale::FloatingPointShortest);
}

QString valeur(const Requete& r, const Champ& champ)
{
    switch (champ.genre) {
    case Genre::Entier:
        return QString::number(r.entier(champ.colonne));
    case Genre::Nombre:
        return nombre(r.reel(champ.colonne));
    case Genre::Texte:
        break;
    }
    return r.texte(champ.colonne);
}

} // namespace

QString ExportCsv::titre()
{
    return QStringLiteral("Export CSV");
}

const QStringList& ExportCsv::sources()
{
    static const QStringList titres = [] {
        QStringList l;
        for (const Source& s : lesSources())
            l << s.titre;
        return l;
    }();
    return titres;
}

QString ExportCsv::commentaireFinal()
{
    return QStringLiteral("Généré par Corvane");
}

ResultatExportCsv ExportCsv::exporter(const QString& source, const QString& dossier, bool entetes)
{
    ResultatExportCsv resultat;
    const auto trouvee = std::find_if(lesSources().cbegin(), lesSources().cend(),
                                      [&source](const Source& s) { return s.titre == source; });
    if (trouvee == lesSources().cend()) {
        resultat.erreur = QStringLiteral("« %1 » n'est pas une liste exportable.").arg(source);
        return resultat;
    }
    const Source& s = *trouvee;
    resultat.fichier = QDir(dossier).absoluteFilePath(s.titre + QStringLiteral(".csv"));
    const auto echec = [&resultat](const QString& message) {
        resultat.erreur = message;
        resultat.lignes = 0;
        return resultat;
    };

    Requete r(m_base, s.requete);
    if (!r.estPreparee())
        return echec(QStringLiteral("Le document ne peut pas être lu : %1.")
                         .arg(ErreursSQLite::raison(r.code(), m_base.chemin())));
    if (!QDir().mkpath(dossier))
        return echec(QStringLiteral("Le dossier « %1 » ne peut pas être créé.").arg(QDir::toNativeSeparators(dossier)));
    if (QFileInfo(resultat.fichier).isDir())
        return echec(
            QStringLiteral("Un dossier porte déjà le nom « %1 ».").arg(QDir::toNativeSeparators(resultat.fichier)));

    // The rows go to a temporary file beside the final one, which only the commit replaces: a failed
    // export never leaves half a file in place of a good one.
    QSaveFile fichier(resultat.fichier);
    if (!fichier.open(QIODevice::WriteOnly))
        return echec(QStringLiteral("Le fichier « %1 » ne peut pas être créé : %2")
                         .arg(QDir::toNativeSeparators(resultat.fichier), fichier.errorString()));
    {
        // Never closed through the writer: a QSaveFile is finished by commit().
        const auto writer = CsvWriter::initWithOutputStream(&fichier, CsvEncodage::Utf8, u',');
        if (!writer) {
            fichier.cancelWriting();
            return echec(QStringLiteral("Le fichier « %1 » ne peut pas être écrit.")
                             .arg(QDir::toNativeSeparators(resultat.fichier)));
        }
        if (entetes)
            writer->writeLineOfFields(s.entetes);
        while (r.suivante()) {
            QStringList champs;
            for (const Champ& champ : s.champs)
                champs << valeur(r, champ);
            writer->writeLineOfFields(champs);
            ++resultat.lignes;
        }
        if (r.code() != SQLITE_DONE) {
            fichier.cancelWriting();
            return echec(QStringLiteral("Le document ne peut pas être lu : %1.")
                             .arg(ErreursSQLite::raison(r.code(), m_base.chemin())));
        }
        writer->writeComment(commentaireFinal());
        if (writer->aEchoue())
            fichier.cancelWriting();
    }
    if (!fichier.commit())
        return echec(QStringLiteral("Le fichier « %1 » n'a pas pu être écrit : %2")
                         .arg(QDir::toNativeSeparators(resultat.fichier), fichier.errorString()));
    return resultat;
}

} // namespace corvane
