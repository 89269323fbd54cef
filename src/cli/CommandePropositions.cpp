// The business manager's prices and propositions: `prestation ajouter`, `remise
// ajouter|supprimer|lister`, `delai ajouter|lister` and `proposition
// ajouter|ligne|afficher|statut|supprimer|lister`.

#include "cli/Affichage.h"
#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"
#include "cli/FluxJson.h"

#include "manager/Propositions.h"
#include "store/Dates.h"

#include <QTime>

#include <limits>

namespace corvane::cli {

namespace {

// "20:30" or "9:05".
std::optional<QTime> lireHeure(Arguments& arguments, const QString& option, QString* erreur)
{
    if (!arguments.contient(option))
        return std::nullopt;
    const QString texte = arguments.valeur(option).trimmed();
    QTime heure = QTime::fromString(texte, QStringLiteral("H:mm"));
    if (!heure.isValid())
        heure = QTime::fromString(texte, QStringLiteral("HH:mm"));
    if (!heure.isValid())
        *erreur = QStringLiteral("heure invalide pour --%1 : « %2 » (format attendu : HH:MM)").arg(option, texte);
    return heure;
}

QString texteRemise(const Remise& r)
{
    const QString libelle = TarifsPropositions::libelleRemise(r);
    return r.note.isEmpty() ? libelle : QStringLiteral("%1  %2").arg(libelle, r.note);
}

class CommandePrestation : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("prestation"); }
    QString usage() const override
    {
        return QStringLiteral(
            "prestation ajouter FICHIER --libelle L --montant X [--groupe G] [--note N] [--par-personne]");
    }

protected:
    QStringList actions() const override { return {"ajouter"}; }

    int executerAction(Contexte& contexte, const QString&, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste,
                      {{"libelle"}, {"montant"}, {"groupe"}, {"note"}, {"par-personne", false}}, 1, &code))
            return code;
        if (!arguments.exiger({"libelle", "montant"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const auto montant = arguments.montant("montant", TarifsPropositions::kPrix);
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        Prestation prestation;
        prestation.libelle = arguments.valeur("libelle");
        prestation.montant = *montant;
        prestation.note = arguments.valeur("note");
        prestation.parPersonne = arguments.contient("par-personne");
        {
            TarifsPropositions tarifs(fichier);
            // Without a group, the first of the list.
            const Intermittent::Choix groupes = tarifs.groupes();
            if (arguments.contient("groupe")) {
                prestation.groupeId = tarifs.findGroupId(arguments.valeur("groupe"));
                if (prestation.groupeId == 0)
                    return echec(contexte, QStringLiteral("aucun groupe de prestations ne s'appelle « %1 ».")
                                               .arg(arguments.valeur("groupe")));
            } else if (!groupes.isEmpty()) {
                prestation.groupeId = groupes.first().first;
            }
            if (const QString refus = tarifs.refusPrestation(prestation); !refus.isEmpty())
                return echec(contexte, refus);
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        TarifsPropositions tarifs(fichier);
        const int id = tarifs.ajoutePrestation(prestation);
        if (id == 0)
            return echec(contexte, QStringLiteral("La prestation n'a pas pu être enregistrée."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", id}});
        else
            contexte.sortie << "Prestation n° " << id << " ajoutée : " << prestation.libelle.trimmed() << ", "
                            << enEuros(prestation.montant) << (prestation.parPersonne ? " par personne" : "") << '.'
                            << Qt::endl;
        return Succes;
    }
};

class CommandeRemise : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("remise"); }
    QString usage() const override
    {
        return QStringLiteral("remise ajouter FICHIER --montant X --type pourcentage|montant [--note N] | remise "
                              "supprimer FICHIER ID | remise lister FICHIER");
    }

protected:
    QStringList actions() const override { return {"ajouter", "supprimer", "lister"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        if (action == QStringLiteral("supprimer"))
            return supprimer(contexte, liste);
        return ajouter(contexte, liste);
    }

private:
    int ajouter(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"montant"}, {"type"}, {"note"}}, 1, &code))
            return code;
        if (!arguments.exiger({"montant", "type"}))
            return mauvaisUsage(contexte, arguments.erreur());
        static const QStringList types{"pourcentage", "montant"};
        const int type = int(types.indexOf(arguments.valeur("type")));
        if (type < 0)
            return mauvaisUsage(contexte, QStringLiteral("type de remise inconnu : « %1 » (choix : %2)")
                                              .arg(arguments.valeur("type"), types.join(", ")));
        const auto montant =
            arguments.montant("montant", type == TarifsPropositions::kTypePourcentage ? Limites::kPourcentage
                                                                                      : TarifsPropositions::kPrix);
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        const Remise remise{0, *montant, type, arguments.valeur("note")};
        if (const QString refus = TarifsPropositions(fichier).refusRemise(remise); !refus.isEmpty())
            return echec(contexte, refus);
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        const int id = TarifsPropositions(fichier).ajouteRemise(remise);
        if (id == 0)
            return echec(contexte, QStringLiteral("La remise n'a pas pu être enregistrée."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", id}});
        else
            contexte.sortie << "Remise n° " << id << " ajoutée : " << TarifsPropositions::libelleRemise(remise) << '.'
                            << Qt::endl;
        return Succes;
    }

    int supprimer(Contexte& contexte, const QStringList& liste)
    {
        return supprimerEnregistrement(
            contexte, liste,
            {QStringLiteral("remise"),
             [](const QString& chemin, int id) { return TarifsPropositions(chemin).remise(id).has_value(); },
             [](const QString& chemin, int id) { return TarifsPropositions(chemin).supprimeRemise(id); },
             [](int id) { return QStringLiteral("aucune remise ne porte le numéro %1.").arg(id); },
             QStringLiteral("La remise n'a pas pu être supprimée."), QStringLiteral("Remise n° %1 supprimée."),
             [](const QString& chemin, int id) { return TarifsPropositions(chemin).refusSuppressionRemise(id); }});
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        int code = Succes;
        const QString fichier = documentALire(contexte, liste, &code);
        if (code != Succes)
            return code;
        QJsonArray remises;
        for (const Remise& r : TarifsPropositions(fichier).remises()) {
            if (contexte.json)
                remises.append(QJsonObject{{"id", r.id},
                                           {"montant", r.montant},
                                           {"type", r.type},
                                           {"unite", TarifsPropositions::unite(r.type)},
                                           {"libelle", TarifsPropositions::libelleRemise(r)},
                                           {"note", r.note}});
            else
                contexte.sortie << r.id << "  " << texteRemise(r) << '\n';
        }
        if (contexte.json)
            ecrireJson(contexte, {{"remises", remises}});
        else
            contexte.sortie.flush();
        return Succes;
    }
};

class CommandeDelai : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("delai"); }
    QString usage() const override
    {
        return QStringLiteral("delai ajouter FICHIER --nombre N --unite jours|mois | delai lister FICHIER");
    }

protected:
    QStringList actions() const override { return {"ajouter", "lister"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        return action == QStringLiteral("lister") ? lister(contexte, liste) : ajouter(contexte, liste);
    }

private:
    int ajouter(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"nombre"}, {"unite"}}, 1, &code))
            return code;
        if (!arguments.exiger({"nombre", "unite"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const int type = TarifsPropositions::typeDelai(arguments.valeur("unite"));
        if (type < 0)
            return mauvaisUsage(
                contexte,
                QStringLiteral("unité inconnue : « %1 » (choix : jours, mois)").arg(arguments.valeur("unite")));
        const auto nombre = arguments.entier(
            "nombre", 1, type == 0 ? TarifsPropositions::kNombreMaximumJours : TarifsPropositions::kNombreMaximumMois);
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        const Delai delai{0, *nombre, type};
        if (const QString refus = TarifsPropositions(fichier).refusDelai(delai); !refus.isEmpty())
            return echec(contexte, refus);
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        const int id = TarifsPropositions(fichier).ajouteDelai(delai);
        if (id == 0)
            return echec(contexte, QStringLiteral("Le délai n'a pas pu être enregistré."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", id}});
        else
            contexte.sortie << "Délai n° " << id << " ajouté : " << TarifsPropositions::libelleDelai(delai) << '.'
                            << Qt::endl;
        return Succes;
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        int code = Succes;
        const QString fichier = documentALire(contexte, liste, &code);
        if (code != Succes)
            return code;
        QJsonArray delais;
        for (const Delai& d : TarifsPropositions(fichier).delais()) {
            if (contexte.json)
                delais.append(QJsonObject{{"id", d.id},
                                          {"nombre", d.nombre},
                                          {"unite", TarifsPropositions::uniteDelai(d.type)},
                                          {"libelle", TarifsPropositions::libelleDelai(d)}});
            else
                contexte.sortie << d.id << "  " << TarifsPropositions::libelleDelai(d) << '\n';
        }
        if (contexte.json)
            ecrireJson(contexte, {{"delais", delais}});
        else
            contexte.sortie.flush();
        return Succes;
    }
};

class CommandeProposition : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("proposition"); }
    QString usage() const override
    {
        return QStringLiteral(
            "proposition ajouter FICHIER --libelle L --employeur NOM --date AAAA-MM-JJ [--commune C] [--heure HH:MM] "
            "[--duree HH:MM] [--charges X] [--charges-non-ajoutees] | proposition ligne FICHIER ID --prestation L "
            "[--personnes N] [--remise RID] [--delai DID] [--date AAAA-MM-JJ] | proposition afficher FICHIER ID | "
            "proposition statut FICHIER ID preparation|envoyee|acceptee|refusee|facturee | proposition supprimer "
            "FICHIER ID | proposition lister FICHIER");
    }

protected:
    QStringList actions() const override { return {"ajouter", "ligne", "afficher", "statut", "supprimer", "lister"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("ajouter"))
            return ajouter(contexte, liste);
        if (action == QStringLiteral("ligne"))
            return ligne(contexte, liste);
        if (action == QStringLiteral("afficher"))
            return afficher(contexte, liste);
        if (action == QStringLiteral("statut"))
            return statut(contexte, liste);
        if (action == QStringLiteral("supprimer"))
            return supprimer(contexte, liste);
        return lister(contexte, liste);
    }

private:
    static QString messageInconnue(int id)
    {
        return QStringLiteral("aucune proposition ne porte le numéro %1.").arg(id);
    }

    int ajouter(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste,
                      {{"libelle"},
                       {"employeur"},
                       {"date"},
                       {"commune"},
                       {"heure"},
                       {"duree"},
                       {"charges"},
                       {"charges-non-ajoutees", false}},
                      1, &code))
            return code;
        if (!arguments.exiger({"libelle", "employeur", "date"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const auto date = arguments.date("date");
        const auto charges = arguments.montant("charges");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        QString erreurHeure;
        const auto heure = lireHeure(arguments, QStringLiteral("heure"), &erreurHeure);
        const auto duree = lireHeure(arguments, QStringLiteral("duree"), &erreurHeure);
        if (!erreurHeure.isEmpty())
            return mauvaisUsage(contexte, erreurHeure);
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        EnteteProposition entete;
        entete.libelle = arguments.valeur("libelle");
        entete.date = *date;
        entete.heure = heure.value_or(QTime());
        entete.heureDonnee = heure.has_value();
        entete.duree = duree.value_or(QTime());
        entete.dureeDonnee = duree.has_value();
        entete.charges = charges.value_or(0.0);
        entete.chargesNonAjoutees = arguments.contient("charges-non-ajoutees");
        {
            Propositions propositions(fichier);
            const QString organisateur = arguments.valeur("employeur");
            entete.employeurId = propositions.retrouveEmployeurId(organisateur);
            if (entete.employeurId == 0)
                return echec(contexte, QStringLiteral("aucun employeur ne s'appelle « %1 ».").arg(organisateur));
            // The organiser's town and legal form, as choosing it in the window fills them.
            const auto [commune, qualite] = propositions.communeEtQualiteOrganisateur(organisateur);
            entete.commune = arguments.valeur("commune", commune);
            entete.qualiteId = qualite;
            if (const QString refus = propositions.refusEntete(entete); !refus.isEmpty())
                return echec(contexte, refus);
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        const int id = Propositions(fichier).enregistreProposition(entete);
        if (id == 0)
            return echec(contexte, QStringLiteral("La proposition n'a pas pu être enregistrée."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", id}});
        else
            contexte.sortie << "Proposition n° " << id << " enregistrée : " << entete.libelle.trimmed() << ", le "
                            << Dates::versAffichage(entete.date) << '.' << Qt::endl;
        return Succes;
    }

    int ligne(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"prestation"}, {"personnes"}, {"remise"}, {"delai"}, {"date"}}, 2,
                      &code))
            return code;
        const int id = lireNumero(contexte, arguments, QStringLiteral("proposition"), &code);
        if (code != Succes)
            return code;
        if (!arguments.exiger({"prestation"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const auto personnes = arguments.entier("personnes", 0, Propositions::kPersonnesMaximum);
        const auto remise = arguments.entier("remise", 1, std::numeric_limits<int>::max());
        const auto delai = arguments.entier("delai", 1, std::numeric_limits<int>::max());
        const auto date = arguments.date("date");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        LigneProposition ligne;
        ligne.propositionId = id;
        {
            Propositions propositions(fichier);
            const std::optional<EnteteProposition> entete = propositions.entete(id);
            if (!entete)
                return echec(contexte, messageInconnue(id));
            TarifsPropositions tarifs(propositions.db());
            const std::optional<Prestation> prestation = tarifs.prestationParLibelle(arguments.valeur("prestation"));
            if (!prestation)
                return echec(
                    contexte,
                    QStringLiteral("aucune prestation ne s'appelle « %1 ».").arg(arguments.valeur("prestation")));
            ligne.prestationId = prestation->id;
            // A service priced per person is for one person unless told otherwise.
            ligne.personnes = personnes.value_or(prestation->parPersonne ? 1 : 0);
            ligne.remiseId = remise.value_or(TarifsPropositions::kAucuneRemise);
            if (!tarifs.remise(ligne.remiseId))
                return echec(contexte, QStringLiteral("aucune remise ne porte le numéro %1.").arg(ligne.remiseId));
            const QList<Delai> delais = tarifs.delais();
            ligne.delaiId = delai.value_or(delais.isEmpty() ? 0 : delais.first().id);
            if (!tarifs.delai(ligne.delaiId))
                return echec(contexte, QStringLiteral("aucun délai ne porte le numéro %1.").arg(ligne.delaiId));
            ligne.date = date.value_or(entete->date);
            if (const QString refus = propositions.refusLigne(ligne); !refus.isEmpty())
                return echec(contexte, refus);
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        Propositions propositions(fichier);
        const int ecrit = propositions.ajouteLigne(ligne);
        if (ecrit == 0)
            return echec(contexte, QStringLiteral("La ligne n'a pas pu être enregistrée."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", ecrit}});
        else
            contexte.sortie << "Ligne n° " << ecrit << " ajoutée à la proposition n° " << id
                            << " ; total : " << enEuros(propositions.calculatesTotalAmount(id)) << '.' << Qt::endl;
        return Succes;
    }

    int afficher(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, 2, &code))
            return code;
        const int id = lireNumero(contexte, arguments, QStringLiteral("proposition"), &code);
        if (code != Succes)
            return code;
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        Propositions propositions(fichier);
        const std::optional<EnteteProposition> entete = propositions.entete(id);
        if (!entete)
            return echec(contexte, messageInconnue(id));
        const DecompteProposition decompte = propositions.decompte(id);
        const Table lignes = propositions.lignesDeLaProposition(id);
        if (contexte.json) {
            FluxJson(contexte.sortie)
                .ecrireObjet({{"id", id},
                              {"libelle", entete->libelle},
                              {"statut", entete->statut},
                              {"total", decompte.total},
                              {"lignes", {}, &lignes}});
            return Succes;
        }
        contexte.sortie << "Proposition n° " << id << " : " << entete->libelle << '\n'
                        << "Organisateur : " << propositions.retrouveEmployeurDepuisId(entete->employeurId) << '\n'
                        << "Date : " << Dates::versAffichage(entete->date) << '\n'
                        << "Statut : " << Propositions::libelleStatut(entete->statut) << '\n';
        for (qsizetype i = 0; i < lignes.size(); ++i)
            contexte.sortie << lignes.valeur(i, "Id").toInt() << "  " << lignes.valeur(i, "Date").toString() << "  "
                            << lignes.valeur(i, "Prestation").toString() << "  "
                            << enEuros(lignes.valeur(i, "Montant").toDouble()) << "  "
                            << lignes.valeur(i, "Remise").toString() << "  " << lignes.valeur(i, "Délai").toString()
                            << '\n';
        contexte.sortie << "Prestations : " << enEuros(decompte.lignes) << '\n';
        if (decompte.charges != 0.0)
            contexte.sortie << "Charges : " << enEuros(decompte.charges) << '\n';
        if (decompte.remise != 0.0)
            contexte.sortie << "Remise : " << TarifsPropositions::libelleRemise(decompte.remiseAppliquee) << " ("
                            << enEuros(-decompte.remise) << ")\n";
        contexte.sortie << "Total : " << enEuros(decompte.total) << Qt::endl;
        return Succes;
    }

    int statut(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, 3, &code))
            return code;
        const int id = lireNumero(contexte, arguments, QStringLiteral("proposition"), &code);
        if (code != Succes)
            return code;
        const QString mot = arguments.positionnels().at(2);
        const int index = int(Propositions::motsStatuts().indexOf(mot));
        if (index < 0)
            return mauvaisUsage(contexte, QStringLiteral("statut inconnu : « %1 » (choix : %2)")
                                              .arg(mot, Propositions::motsStatuts().join(", ")));
        const int statut = Propositions::statutDeLIndex(index);
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        if (!Propositions(fichier).propositionExiste(id))
            return echec(contexte, messageInconnue(id));
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        bool ecrit = false;
        const QString avertissement = Propositions(fichier).changeStatut(id, statut, &ecrit);
        if (!ecrit)
            return echec(contexte, QStringLiteral("Le statut n'a pas pu être enregistré."));
        if (contexte.json) {
            ecrireJson(contexte,
                       {{"statut", statut}, {"avertissement", avertissement.isEmpty() ? QJsonValue() : avertissement}});
            return Succes;
        }
        if (!avertissement.isEmpty())
            contexte.sortie << avertissement << '\n';
        contexte.sortie << "Proposition n° " << id << " : " << Propositions::libelleStatut(statut) << '.' << Qt::endl;
        return Succes;
    }

    int supprimer(Contexte& contexte, const QStringList& liste)
    {
        return supprimerEnregistrement(
            contexte, liste,
            {QStringLiteral("proposition"),
             [](const QString& chemin, int id) { return Propositions(chemin).propositionExiste(id); },
             [](const QString& chemin, int id) { return Propositions(chemin).supprimeProposition(id); },
             &messageInconnue, QStringLiteral("La proposition n'a pas pu être supprimée."),
             QStringLiteral("Proposition n° %1 supprimée."),
             [](const QString& chemin, int id) { return Propositions(chemin).refusSuppression(id); }});
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        int code = Succes;
        const QString fichier = documentALire(contexte, liste, &code);
        if (code != Succes)
            return code;
        const Table table = Propositions(fichier).listeDesPropositions();
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"propositions", {}, &table}});
            return Succes;
        }
        for (qsizetype i = 0; i < table.size(); ++i)
            contexte.sortie << table.valeur(i, "Id").toInt() << "  " << table.valeur(i, "Date").toString() << "  "
                            << table.valeur(i, "Libellé").toString() << "  "
                            << table.valeur(i, "Organisateur").toString() << "  "
                            << Propositions::libelleStatut(table.valeur(i, "Statut").toInt()) << "  "
                            << enEuros(table.valeur(i, "Montant").toDouble()) << '\n';
        contexte.sortie << table.size() << " proposition(s)" << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandePrestation()
{
    return std::make_unique<CommandePrestation>();
}

std::unique_ptr<Commande> commandeRemise()
{
    return std::make_unique<CommandeRemise>();
}

std::unique_ptr<Commande> commandeDelai()
{
    return std::make_unique<CommandeDelai>();
}

std::unique_ptr<Commande> commandeProposition()
{
    return std::make_unique<CommandeProposition>();
}

} // namespace corvane::cli
