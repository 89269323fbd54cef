#include "records/ContratsModeles.h"

#include "store/SaisieFrancaise.h"

#include <sqlite3.h>

namespace corvane {

namespace {

const QList<QPair<QString, QString>>& colonnesEtCles()
{
    static const QList<QPair<QString, QString>> liste{
        {"cm_id", "Id"},
        {"cm_libelle", "Nom du modèle"},
        {"cm_emploi_id", "Emploi"},
        {"cm_type_id", "Type"},
        {"cm_nbre_jours", "Jours"},
        {"cm_nbre_heures", "Heures"},
        {"cm_salaire_brut", "Salaire brut"},
        {"cm_salaire_net", "Salaire net"},
        {"cm_salaire_net_a_payer", "Salaire net à payer"},
        {"cm_employeur", "Employeur"},
        {"cm_associer_frais", "Associer Frais"},
        {"cm_fraistype_id", "FraisType Id"},
        {"cm_frais_montant", "Frais Montant"},
        {"cm_frais_details", "Frais Note"},
    };
    return liste;
}

QString montant(double valeur)
{
    return QString::asprintf("%2.2f", valeur);
}

} // namespace

ContratsModeles::ContratsModeles(const QString& chemin) : Intermittent(chemin) {}

int ContratsModeles::compteLesModelesDeLEmployeur(int employeurId)
{
    return int(
        m_db.entier(QStringLiteral("SELECT COUNT(*) FROM contratsmodeles WHERE cm_employeur = ?;"), {employeurId}));
}

const QStringList& ContratsModeles::clesListe()
{
    static const QStringList cles = [] {
        QStringList l;
        for (const auto& [colonne, cle] : colonnesEtCles())
            l << cle;
        return l;
    }();
    return cles;
}

ContratModele ContratsModeles::depuisLigne(const Ligne& l)
{
    ContratModele m;
    m.id = l.value("Id").toInt();
    m.libelle = l.value("Nom du modèle").toString();
    m.emploiId = l.value("Emploi").toInt();
    m.typeId = l.value("Type").toInt();
    m.jours = l.value("Jours").toInt();
    m.heures = l.value("Heures").toInt();
    m.salaireBrut = l.value("Salaire brut").toDouble();
    m.salaireNet = l.value("Salaire net").toDouble();
    m.salaireNetAPayer = l.value("Salaire net à payer").toDouble();
    m.employeurId = l.value("Employeur", 1).toInt();
    m.associerFrais = l.value("Associer Frais").toInt();
    m.fraisTypeId = l.value("FraisType Id").toInt();
    m.fraisMontant = l.value("Frais Montant").toDouble();
    m.fraisDetails = l.value("Frais Note").toString();
    return m;
}

// --- Writing --------------------------------------------------------------------------------

int ContratsModeles::enregistreContratsModele(const ContratModele& m)
{
    const int code = m_db.executer(QStringLiteral("INSERT INTO contratsmodeles (cm_libelle, cm_emploi_id, cm_type_id, "
                                                  "cm_nbre_jours, cm_nbre_heures, cm_salaire_brut, cm_salaire_net, "
                                                  "cm_employeur) VALUES (?, %1, %2, %3, %4, '%5', '%6', %7);")
                                       .arg(uint(m.emploiId))
                                       .arg(uint(m.typeId))
                                       .arg(m.jours)
                                       .arg(m.heures)
                                       .arg(montant(m.salaireBrut), montant(m.salaireNet))
                                       .arg(uint(m.employeurId)),
                                   {texteNonNul(m.libelle)});
    return code == SQLITE_DONE ? int(m_db.dernierIdInsere()) : 0;
}

bool ContratsModeles::modifieContratsModele(const ContratModele& m)
{
    return m_db.executer(QStringLiteral("UPDATE contratsmodeles SET cm_libelle=?, cm_emploi_id=%1, cm_type_id=%2, "
                                        "cm_nbre_jours=%3, cm_nbre_heures=%4, cm_salaire_brut='%5', "
                                        "cm_salaire_net='%6', cm_employeur=%7 WHERE cm_id=%8;")
                             .arg(uint(m.emploiId))
                             .arg(uint(m.typeId))
                             .arg(m.jours)
                             .arg(m.heures)
                             .arg(montant(m.salaireBrut), montant(m.salaireNet))
                             .arg(uint(m.employeurId))
                             .arg(uint(m.id)),
                         {texteNonNul(m.libelle)}) == SQLITE_DONE;
}

bool ContratsModeles::enregistreComplements(const ContratModele& m)
{
    return m_db.executer(QStringLiteral("UPDATE contratsmodeles SET cm_salaire_net_a_payer=%1, cm_associer_frais=%2, "
                                        "cm_fraistype_id=%3, cm_frais_montant=%4, cm_frais_details=? WHERE cm_id=%5;")
                             .arg(montant(m.salaireNetAPayer))
                             .arg(m.associerFrais ? 1 : 0)
                             .arg(uint(m.fraisTypeId))
                             .arg(montant(m.fraisMontant))
                             .arg(uint(m.id)),
                         {texteNonNul(m.fraisDetails)}) == SQLITE_DONE;
}

bool ContratsModeles::supprimeContratsModele(int id)
{
    return m_db.exec(QStringLiteral("DELETE FROM contratsmodeles WHERE cm_id='%1';").arg(uint(id))) == SQLITE_OK;
}

QString ContratsModeles::titreVerification()
{
    return QStringLiteral("Vérification des données...");
}

QString ContratsModeles::questionEmployeursAssocies()
{
    return QStringLiteral("Des employeurs sont associés à ce modèle de contrat.\n\nSouhaitez-vous réellement "
                          "supprimer ce modèle ?");
}

bool ContratsModeles::supprimeContratsModeleAvecVerification(int id, Dialogues& dialogues)
{
    const qint64 utilisateurs =
        m_db.entier(QStringLiteral("SELECT COUNT(*) AS nombreEmployeurs FROM employeurs WHERE e_contratmodele_id='%1';")
                        .arg(uint(id)));
    if (utilisateurs > 0) {
        if (dialogues.question(titreVerification(), questionEmployeursAssocies(), {"Oui", "Non"}) !=
            QStringLiteral("Oui"))
            return false;
        supprimeContratsModele(id);
        m_db.exec(
            QStringLiteral("UPDATE employeurs SET e_contratmodele_id = 0 WHERE e_contratmodele_id=%1;").arg(uint(id)));
        return true;
    }
    return supprimeContratsModele(id);
}

QString ContratsModeles::messageLibelleObligatoire()
{
    return QStringLiteral("Le nom du modèle est obligatoire.");
}

QString ContratsModeles::messageExisteDeja()
{
    return QStringLiteral("Un modèle porte déjà ce nom.");
}

QString ContratsModeles::refusEnregistrement(const ContratModele& m)
{
    if (m.libelle.trimmed().isEmpty())
        return messageLibelleObligatoire();
    if (const QString r = SaisieFrancaise::refusEntier(m.jours, 0, Limites::kJoursContratMaximum); !r.isEmpty())
        return QStringLiteral("Jours : %1.").arg(r);
    if (const QString r = SaisieFrancaise::refusEntier(m.heures, 0, Limites::kHeuresContratMaximum); !r.isEmpty())
        return QStringLiteral("Heures : %1.").arg(r);
    const QList<QPair<QString, double>> montants{{QStringLiteral("Salaire brut"), m.salaireBrut},
                                                 {QStringLiteral("Salaire net"), m.salaireNet},
                                                 {QStringLiteral("Salaire net à payer"), m.salaireNetAPayer},
                                                 {QStringLiteral("Montant de la dépense"), m.fraisMontant}};
    for (const auto& [champ, montant] : montants) {
        if (const QString r = SaisieFrancaise::refusNombre(montant, Limites::kMontant); !r.isEmpty())
            return QStringLiteral("%1 : %2.").arg(champ, r);
    }
    // Templates are found by their label: two with one label could not be told apart.
    const qint64 autres = m_db.entier(
        QStringLiteral("SELECT COUNT(*) FROM contratsmodeles WHERE cm_libelle=? AND cm_id <> %1;").arg(uint(m.id)),
        {m.libelle});
    return autres > 0 ? messageExisteDeja() : QString();
}

// --- Reading --------------------------------------------------------------------------------

int ContratsModeles::retrouveIdContratsModele(const QString& libelle)
{
    return int(m_db.entier(QStringLiteral("SELECT cm_id FROM contratsmodeles WHERE cm_libelle=?;"), {libelle}));
}

QString ContratsModeles::retrouveLibelleFromId(int id)
{
    return m_db.texte(QStringLiteral("SELECT cm_libelle FROM contratsmodeles WHERE cm_id=%1;").arg(uint(id)));
}

Lignes ContratsModeles::listeLesModeles_v4()
{
    // Every column there is: a document the upgrade pass has not seen lacks the net to pay.
    Lignes resultat;
    for (const Ligne& brute : m_db.lignes(QStringLiteral("SELECT * FROM contratsmodeles ORDER BY cm_libelle ASC;"))) {
        Ligne l;
        for (const auto& [colonne, cle] : colonnesEtCles())
            l.insert(cle, brute.value(colonne,
                                      colonne == QLatin1String("cm_salaire_net_a_payer") ? QVariant(0.0) : QVariant()));
        resultat << l;
    }
    return resultat;
}

QStringList ContratsModeles::tousLesModeles()
{
    return m_db.colonne(QStringLiteral("SELECT cm_libelle FROM contratsmodeles ORDER BY cm_libelle ASC;"));
}

std::optional<ContratModele> ContratsModeles::contenuDuModele(const QString& libelle)
{
    const Lignes lignes = m_db.lignes(QStringLiteral("SELECT * FROM contratsmodeles WHERE cm_libelle=?;"), {libelle});
    if (lignes.isEmpty())
        return std::nullopt;
    Ligne l;
    for (const auto& [colonne, cle] : colonnesEtCles())
        l.insert(cle, lignes.first().value(colonne));
    return depuisLigne(l);
}

std::optional<ContratModele> ContratsModeles::contenuDuModeleDepuisEmployeurId(int employeurId)
{
    Requete r(m_db, QStringLiteral("SELECT cm_emploi_id, cm_type_id, cm_nbre_jours, cm_nbre_heures, cm_salaire_brut, "
                                   "cm_salaire_net FROM contratsmodeles JOIN employeurs ON e_contratmodele_id = cm_id "
                                   "WHERE employeurs.e_id=%1;")
                        .arg(uint(employeurId)));
    if (!r.suivante())
        return std::nullopt;
    ContratModele m;
    m.emploiId = int(r.entier(0));
    m.typeId = int(r.entier(1));
    m.jours = int(r.entier(2));
    m.heures = int(r.entier(3));
    m.salaireBrut = r.reel(4);
    m.salaireNet = r.reel(5);
    m.employeurId = employeurId;
    // The expense to create with the contract, which the statement above leaves out (a document
    // not yet upgraded has none).
    Requete frais(m_db, QStringLiteral("SELECT cm_id, cm_associer_frais, cm_fraistype_id, cm_frais_montant, "
                                       "cm_frais_details FROM contratsmodeles JOIN employeurs ON e_contratmodele_id = "
                                       "cm_id WHERE employeurs.e_id=%1;")
                            .arg(uint(employeurId)));
    if (frais.suivante()) {
        m.id = int(frais.entier(0));
        m.associerFrais = int(frais.entier(1));
        m.fraisTypeId = int(frais.entier(2));
        m.fraisMontant = frais.reel(3);
        m.fraisDetails = frais.texte(4);
    }
    return m;
}

// --- Kinds ----------------------------------------------------------------------------------

QStringList ContratsModeles::typesPourEmploi(int emploiId)
{
    if (emploiId == kEmploiAutoEntrepreneur)
        return m_db.colonne(QStringLiteral("SELECT ae_type FROM autoentrepreneurtypes ORDER BY ae_type ASC;"));
    return m_db.colonne(QStringLiteral("SELECT ct_type FROM contratstypes ORDER BY ct_id ASC;"));
}

int ContratsModeles::typeIdPourEmploi(int emploiId, const QString& type)
{
    if (emploiId == kEmploiAutoEntrepreneur)
        return int(m_db.entier(QStringLiteral("SELECT ae_id FROM autoentrepreneurtypes WHERE ae_type=?;"), {type}));
    return retrouveContratTypeId(type);
}

QString ContratsModeles::typePourEmploi(int emploiId, int typeId)
{
    if (emploiId == kEmploiAutoEntrepreneur)
        return retrouveContratTypeAEDepuisId(typeId);
    return retrouveContratTypeDepuisId(typeId);
}

} // namespace corvane
