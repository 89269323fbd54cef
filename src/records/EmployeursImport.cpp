// Employers imported from another document of the program.

#include "records/Employeurs.h"

#include <QFileInfo>
#include <sqlite3.h>

namespace corvane {

namespace {

// Read from every source; the first is the source's own id, which is not copied.
const QStringList& colonnesDeBase()
{
    static const QStringList liste{"e_id",    "e_raison_sociale", "e_adresse",   "e_codepostal", "e_commune",
                                   "e_email", "e_interlocuteur",  "e_telephone", "e_fax",        "e_contratmodele_id"};
    return liste;
}

// Copied when the source has them (older documents do not).
const QStringList& colonnesSupplementaires()
{
    static const QStringList liste{"e_conventionne",         "e_latitude", "e_longitude", "e_no_siret",
                                   "e_no_licence_spectacle", "e_prospect", "e_couleur"};
    return liste;
}

bool memeFichier(const QString& a, const QString& b)
{
    const QFileInfo ia(a), ib(b);
    if (ia.exists() && ib.exists())
        return ia.canonicalFilePath() == ib.canonicalFilePath();
    return ia.absoluteFilePath() == ib.absoluteFilePath();
}

} // namespace

QString Employeurs::titreImport()
{
    return QStringLiteral("Import d'employeurs");
}

QString Employeurs::messageFichierDejaOuvert()
{
    return QStringLiteral("Ce fichier est déjà ouvert dans Corvane.");
}

QString Employeurs::messageFichierIllisible()
{
    return QStringLiteral("Ce fichier ne contient aucun employeur à importer.");
}

int Employeurs::importeEmployeursDepuis(const QString& cheminSource, QString* refus)
{
    auto refuser = [refus](const QString& message) {
        if (refus)
            *refus = message;
        return -1;
    };
    if (memeFichier(cheminSource, m_cheminDuFichier))
        return refuser(messageFichierDejaOuvert());

    // The other document is only read.
    BaseDeDonnees source;
    if (!source.ouvrirEnLecture(cheminSource) || !source.tableExiste(QStringLiteral("employeurs")))
        return refuser(messageFichierIllisible());

    QStringList presentes;
    const Lignes infos = source.lignes(QStringLiteral("PRAGMA table_info(employeurs);"));
    for (const Ligne& info : infos)
        presentes << info.value("name").toString();
    QStringList supplementaires;
    for (const QString& colonne : colonnesSupplementaires()) {
        if (presentes.contains(colonne))
            supplementaires << colonne;
    }
    const QString extraSelect = supplementaires.isEmpty() ? QString() : ", " + supplementaires.join(", ");
    QString extraValeurs;
    for (int i = 0; i < supplementaires.size(); ++i)
        extraValeurs += QStringLiteral(", ?");

    Requete lecture(source,
                    QStringLiteral("SELECT %1%2 FROM employeurs;").arg(colonnesDeBase().join(", "), extraSelect));
    if (!lecture.estPreparee())
        return refuser(messageFichierIllisible());

    const QString insertion = QStringLiteral("INSERT INTO employeurs (e_raison_sociale, e_adresse, e_codepostal, "
                                             "e_commune, e_email, e_interlocuteur, e_telephone, e_fax, "
                                             "e_contratmodele_id%1) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?%2);")
                                  .arg(extraSelect, extraValeurs);
    int importes = 0;
    m_db.exec(QStringLiteral("BEGIN;"));
    while (lecture.suivante()) {
        // A missing name, postal code or town compares as empty text, so that it is still recognised.
        const QString nom = lecture.texte(1);
        const QString codePostal = lecture.texte(3);
        const QString commune = lecture.texte(4);
        const qint64 deja = m_db.entier(QStringLiteral("SELECT COUNT(*) AS compteur FROM employeurs WHERE "
                                                       "e_raison_sociale=? AND e_codepostal=? AND e_commune=?;"),
                                        {nom, codePostal, commune});
        if (deja != 0)
            continue;
        QVariantList valeurs{nom, lecture.valeur(2), codePostal, commune};
        for (int i = 5; i < lecture.nombreColonnes(); ++i)
            valeurs << lecture.valeur(i);
        if (m_db.executer(insertion, valeurs) == SQLITE_DONE)
            ++importes;
    }
    m_db.exec(QStringLiteral("COMMIT;"));
    return importes;
}

} // namespace corvane
