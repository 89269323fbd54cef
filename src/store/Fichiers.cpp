#include "store/Fichiers.h"

#include "store/Annexes.h"
#include "store/Dates.h"
#include "store/ErreursSQLite.h"
#include "store/Horloge.h"
#include "store/SaisieFrancaise.h"
#include "store/Schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace corvane {

namespace {

QString nomAffiche(const QString& chemin)
{
    return QDir::toNativeSeparators(chemin);
}

} // namespace

Fichiers::Fichiers(const NouveauDocument& parametres)
    : m_parametres(parametres), m_sql(Schema::texte(Schema::creationV4()))
{
}

QString Fichiers::versionProgramme()
{
    return QStringLiteral(CORVANE_VERSION_PROGRAMME);
}

QDate Fichiers::finPremierePeriode(int emploiId, const QDate& ouverture)
{
    const QDate aujourdhui = Horloge::aujourdhui();
    const auto annexe = annexePourProfession(professions().value(emploiId - 1));
    if (!annexe || !ouverture.isValid())
        return aujourdhui;
    return ouverture.addDays(joursPeriodeDeReference(*annexe, aujourdhui) - 1);
}

void Fichiers::echouer(const QString& message)
{
    m_erreur = message;
}

QString Fichiers::libellePeriode(const QDate& debut, const QDate& fin)
{
    return QStringLiteral("Période du %1 au %2").arg(Dates::versAffichage(debut), Dates::versAffichage(fin));
}

QList<QPair<QString, QDate>> Fichiers::datesPrefereesInitiales(const QDate& ouverture, const QDate& fin)
{
    const int annee = Horloge::aujourdhui().year();
    return {
        {"contrats_debut", ouverture},
        {"contrats_fin", fin},
        {"frais_debut", QDate(annee, 1, 1)},
        {"frais_fin", QDate(annee, 12, 31)},
        {"conges_debut", QDate(annee - 1, 4, 1)},
        {"conges_fin", QDate(annee, 3, 31)},
        {"fiscalite_debut", QDate(annee - 1, 1, 1)},
        {"fiscalite_fin", QDate(annee - 1, 12, 31)},
        {"simulation_debut", ouverture},
        {"simulation_fin", fin},
        {"securite_sociale_verification", ouverture},
        {"securite_sociale_debut", ouverture},
        {"securite_sociale_fin", fin},
        {"assedichistorique_debut", QDate(annee, 1, 1)},
        {"assedichistorique_fin", QDate(annee, 12, 31)},
    };
}

// --- Creation ---------------------------------------------------------------------------

bool Fichiers::nouveauV4()
{
    m_erreur.clear();
    const NouveauDocument& p = m_parametres;
    const QFileInfo info(p.nomDuFichier);
    if (p.nomDuFichier.isEmpty()) {
        echouer(QStringLiteral("Aucun nom de fichier n'a été indiqué."));
        return false;
    }
    if (info.exists()) {
        echouer(
            QStringLiteral("Un fichier « %1 » existe déjà : choisissez un autre nom.").arg(nomAffiche(p.nomDuFichier)));
        return false;
    }
    if (!info.absoluteDir().exists()) {
        echouer(QStringLiteral("Le dossier « %1 » n'existe pas.").arg(nomAffiche(info.absolutePath())));
        return false;
    }
    if (!p.dateOuvertureDesDroits.isValid()) {
        echouer(QStringLiteral("La date d'ouverture des droits n'est pas valide."));
        return false;
    }
    if (const QString refus = SaisieFrancaise::refusDate(p.dateOuvertureDesDroits); !refus.isEmpty()) {
        echouer(QStringLiteral("Date d'ouverture des droits : %1.").arg(refus));
        return false;
    }
    if (const QString refus = SaisieFrancaise::refusNombre(p.taux, Limites::kMontant); !refus.isEmpty()) {
        echouer(QStringLiteral("Taux journalier validé : %1.").arg(refus));
        return false;
    }

    const QDate aujourdhui = Horloge::aujourdhui();
    const QDate ouverture = p.dateOuvertureDesDroits;
    const QDate fin = finPremierePeriode(p.emploiId, ouverture);

    closeConnection();
    if (!m_db.creer(p.nomDuFichier)) {
        echouer(QStringLiteral("Le fichier « %1 » n'a pas pu être créé : %2")
                    .arg(nomAffiche(p.nomDuFichier), m_db.derniereErreur()));
        return false;
    }
    m_cheminDuFichier = p.nomDuFichier;

    // One transaction: the document is whole or not there at all.
    m_db.exec(QStringLiteral("BEGIN;"));
    m_db.exec(m_sql);
    m_db.executer(
        "INSERT INTO utilisateur (u_id, u_nom, u_prenom, u_pseudonyme, u_telephone, u_nir, u_naissance, u_adresse, "
        "u_codepostal, u_commune, u_emploi_id, u_identifiant_assedic, u_date_debut_dossier, u_conges_spectacles, "
        "u_guso, u_civilite_id, u_audiens, u_email, u_lieu_naissance, u_nationalite, u_pays, u_fax, u_photo, "
        "u_srj_valide, u_taux_valide, u_abattement, u_periode_en_cours, u_nbre_enfants, u_carte_identite, "
        "u_permis_conduire, u_telephone_mobile, u_rib_etablissement, u_rib_guichet, u_rib_compte, u_rib_cle, "
        "u_autoentrepreneur_flag) VALUES (1, ?, ?, '', '', '', ?, '', '', '', ?, '', ?, '', '', ?, '', '', '', '', '', "
        "'', '', 0.0, ?, ?, 1, 0, '', '', '', '', '', '', '', ?);",
        {p.nom, p.prenom, aujourdhui, p.emploiId, ouverture, p.civiliteId, p.taux, p.abattementState == 1 ? 1 : 2,
         p.isAutoEntrepreneur ? 1 : 0});
    m_db.executer("INSERT INTO periodes (p_date_debut, p_date_fin, p_libelle, p_notes) VALUES (?, ?, ?, ?);",
                  {ouverture, fin, libellePeriode(ouverture, fin), QStringLiteral("Période initiale")});

    const auto preferees = datesPrefereesInitiales(ouverture, fin);
    QString insertion = QStringLiteral(
        "INSERT INTO datesPeriodesPreferees (dpp_element, dpp_date) SELECT ? AS dpp_element, ? AS dpp_date");
    QVariantList valeurs;
    for (int i = 0; i < preferees.size(); ++i) {
        if (i > 0)
            insertion += QStringLiteral(" UNION SELECT ?, ?");
        valeurs << preferees[i].first << preferees[i].second;
    }
    insertion += QLatin1Char(';');
    m_db.executer(insertion, valeurs);

    if (p.isLocked == 1)
        m_db.executer("UPDATE file SET f_locked = 1, f_password = ? WHERE f_id = 1;",
                      {QString::fromLatin1(p.password.toUtf8().toBase64())});

    const int rc = m_db.exec(QStringLiteral("COMMIT;"));
    if (rc != SQLITE_OK) {
        const QString raison = m_db.derniereErreur();
        closeConnection();
        QFile::remove(p.nomDuFichier);
        echouer(QStringLiteral("Le fichier « %1 » n'a pas pu être créé : %2").arg(nomAffiche(p.nomDuFichier), raison));
        return false;
    }
    closeConnection();
    return true;
}

// --- Recognition ------------------------------------------------------------------------

QString Fichiers::checkVersion(const QString& chemin, bool verifierPages)
{
    m_erreur.clear();
    const QFileInfo info(chemin);
    if (chemin.isEmpty() || !info.exists()) {
        echouer(QStringLiteral("Le fichier « %1 » est introuvable.").arg(nomAffiche(chemin)));
        return {};
    }
    if (info.isDir()) {
        echouer(QStringLiteral("« %1 » est un dossier, et non un fichier Corvane.").arg(nomAffiche(chemin)));
        return {};
    }

    BaseDeDonnees base;
    if (!base.ouvrirEnLecture(chemin)) {
        echouer(QStringLiteral("Le fichier « %1 » ne peut pas être lu : %2")
                    .arg(nomAffiche(chemin), base.derniereErreur()));
        return {};
    }
    const QString pasUnDocument =
        QStringLiteral("Le fichier « %1 » n'est pas un fichier Corvane : il ne peut pas être ouvert.")
            .arg(nomAffiche(chemin));
    const QString endommage =
        QStringLiteral("Le fichier « %1 » est endommagé : Corvane ne peut pas le lire.").arg(nomAffiche(chemin));

    // A lock held by another program, or a hot journal that could not be rolled back, is
    // not damage: the file is sound and will read once the other program is done.
    auto refus = [&](const Requete& r) {
        const int code = sqlite3_extended_errcode(base.handle());
        if (ErreursSQLite::estOccupe(r.code()))
            return ErreursSQLite::fichierUtilise(chemin);
        if (code == SQLITE_READONLY_ROLLBACK)
            return QStringLiteral("Le fichier « %1 » doit être réparé après un enregistrement interrompu, mais Corvane "
                                  "ne peut pas écrire dans ce fichier ou dans son dossier « %2 ». Copiez le fichier "
                                  "avec son fichier « %3-journal » dans un dossier où vous pouvez écrire, puis ouvrez "
                                  "la copie.")
                .arg(nomAffiche(chemin), nomAffiche(info.absolutePath()), info.fileName());
        return r.code() == SQLITE_NOTADB ? pasUnDocument : endommage;
    };
    qint64 compteur = 0;
    {
        Requete r(base, QStringLiteral("SELECT COUNT(*) AS compteur FROM sqlite_master;"));
        if (!r.suivante()) {
            echouer(refus(r));
            return {};
        }
        compteur = r.entier(0);
    }
    // A file can look like a database and still be truncated or damaged: check it
    // before anything is written to it.
    if (verifierPages) {
        Requete r(base, QStringLiteral("PRAGMA quick_check;"));
        if (!r.suivante() || r.texte(0) != QStringLiteral("ok")) {
            echouer(refus(r));
            return {};
        }
    }
    if (compteur == 0)
        return m_versionOrvia = QStringLiteral("0");
    return m_versionOrvia = version(base);
}

QString Fichiers::version(const QString& chemin)
{
    BaseDeDonnees base;
    if (!base.ouvrirEnLecture(chemin)) {
        echouer(QStringLiteral("Le fichier « %1 » est introuvable.").arg(nomAffiche(chemin)));
        return {};
    }
    return m_versionOrvia = version(base);
}

QString Fichiers::version(BaseDeDonnees& base)
{
    auto existe = [&base](const char* table) {
        return base.entier(
                   QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name = '%1';").arg(QLatin1String(table))) >
               0;
    };
    if (existe("propositions"))
        return QStringLiteral("4");
    if (existe("securitesociale"))
        return QStringLiteral("3");
    if (existe("cachets_planifies"))
        return existe("QLP_SchemaTable") ? QStringLiteral("2") : QStringLiteral("2.5");
    return QStringLiteral("1");
}

// --- Opening ------------------------------------------------------------------------------

bool Fichiers::verifierEcriture(const QString& chemin)
{
    const QFileInfo info(chemin);
    // The permission bits, not only access(): a document marked read-only stays so
    // even for an administrator.
    if (!info.isWritable() || !(info.permissions() & QFileDevice::WriteOwner)) {
        echouer(QStringLiteral("Le fichier « %1 » est protégé en écriture : Corvane enregistre vos informations au fur "
                               "et à mesure et ne peut donc pas l'ouvrir. Retirez sa protection, ou ouvrez-en une "
                               "copie.")
                    .arg(nomAffiche(chemin)));
        return false;
    }
    const QFileInfo dossier(info.absolutePath());
    if (!dossier.isWritable()) {
        echouer(QStringLiteral("Le dossier « %1 » est protégé en écriture : Corvane ne peut pas y enregistrer vos "
                               "informations.")
                    .arg(nomAffiche(dossier.absoluteFilePath())));
        return false;
    }
    return true;
}

QString Fichiers::ouvertureSQLite(const QString& chemin, const QString& dejaOuvert, Dialogues& dialogues)
{
    m_generationInitiale.clear();
    m_cheminConverti.clear();
    return ouvrir(chemin, dejaOuvert, dialogues);
}

QString Fichiers::ouvrir(const QString& chemin, const QString& dejaOuvert, Dialogues& dialogues)
{
    const QString generation = checkVersion(chemin);
    if (generation.isEmpty())
        return {};
    if (m_generationInitiale.isEmpty())
        m_generationInitiale = generation;

    // Refusing leaves the document that was open before as it was.
    auto garderLeDocumentOuvert = [&]() -> QString {
        if (!dejaOuvert.isEmpty() && dejaOuvert != fichierTravailParDefaut() && dejaOuvert != chemin)
            return ouvrir(dejaOuvert, QString(), dialogues);
        return dejaOuvert;
    };

    if (generation == QStringLiteral("4") || generation == QStringLiteral("3")) {
        if (!verifierEcriture(chemin))
            return {};
        if (!ouvreLeFichier(chemin) || m_db.estEnLectureSeule()) {
            closeConnection();
            verifierEcriture(chemin);
            if (m_erreur.isEmpty())
                echouer(
                    QStringLiteral("Le fichier « %1 » ne peut pas être ouvert en écriture.").arg(nomAffiche(chemin)));
            return {};
        }
        nouveautesVerif();
        closeConnection();
        return m_erreur.isEmpty() ? chemin : QString();
    }

    if (generation == QStringLiteral("0")) {
        echouer(QStringLiteral("Le fichier « %1 » ne contient aucune donnée Corvane : il ne peut pas être ouvert.")
                    .arg(nomAffiche(chemin)));
        return {};
    }

    // Generations 1, 2 and 2.5: the earlier product's formats.
    const QString reponse = dialogues.question(
        QStringLiteral("Ouverture de fichier"),
        QStringLiteral("Ce fichier est issu de Orvia %1. Il peut être sauvegardé, puis converti dans le nouveau "
                       "format.\n\nSouhaitez-vous le convertir ?")
            .arg(generation),
        {QStringLiteral("Convertir le fichier"), QStringLiteral("Ne rien faire")});
    if (reponse != QStringLiteral("Convertir le fichier"))
        return garderLeDocumentOuvert();

    const QString copie = conversionFichier(chemin, generation);
    if (copie.isEmpty())
        return {};
    m_cheminConverti = copie;
    const QString suite = dialogues.question(
        QStringLiteral("Gestion des fichiers"),
        QStringLiteral("%1\n\nSouhaitez-vous ouvrir le nouveau fichier maintenant ?")
            .arg(QStringLiteral("Votre fichier original a été sauvegardé, puis converti au format Corvane 3.")),
        {QStringLiteral("Ouvrir"), QStringLiteral("Ne pas ouvrir")});
    if (suite == QStringLiteral("Ouvrir"))
        return ouvrir(copie, dejaOuvert, dialogues);
    return garderLeDocumentOuvert();
}

} // namespace corvane
