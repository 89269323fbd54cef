#include "exchange/ImportCsv.h"

#include "exchange/CsvParser.h"
#include "store/ErreursSQLite.h"
#include "store/PointDeSauvegarde.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <sqlite3.h>

namespace corvane {

namespace {

// A parse that stopped, for whoever looks into a file's trouble: QT_LOGGING_RULES="corvane.csv.info=true".
// The user is told in French; stderr stays the command line's own.
Q_LOGGING_CATEGORY(journalCsv, "corvane.csv", QtWarningMsg)

// Builds the grid as the records arrive; a record cut short by an error never becomes a row.
class LecteurGrille : public CsvParserDelegate
{
public:
    LecteurGrille(LectureCsv& lecture, bool titres) : m_lecture(lecture), m_titresAttendus(titres) {}

    void parserDidBeginLine(CsvParser&, qsizetype) override { m_champs.clear(); }
    void parserDidReadFieldAtIndex(CsvParser&, const QString& champ, qsizetype) override { m_champs << champ; }
    void parserDidEndLine(CsvParser&, qsizetype) override
    {
        while (m_lecture.colonnes.size() < m_champs.size()) {
            const QString identifiant = ImportCsv::identifiantColonne(m_lecture.colonnes.size());
            m_lecture.colonnes << identifiant;
            m_lecture.titres << identifiant;
        }
        if (m_titresAttendus) {
            m_titresAttendus = false;
            for (qsizetype i = 0; i < m_champs.size(); ++i)
                if (!m_champs.at(i).isEmpty())
                    m_lecture.titres[i] = m_champs.at(i);
            return;
        }
        Ligne rangee;
        for (qsizetype i = 0; i < m_champs.size(); ++i)
            rangee.insert(m_lecture.colonnes.at(i), m_champs.at(i));
        m_lecture.rangees << rangee;
    }
    void parserDidFailWithError(CsvParser&, const CsvErreur& erreur) override
    {
        qCInfo(journalCsv).noquote()
            << QStringLiteral("Parser failed with error: %1 %2").arg(erreur.description, erreur.details);
    }

private:
    LectureCsv& m_lecture;
    bool m_titresAttendus;
    QStringList m_champs;
};

QString nommerSeparateur(QChar separateur)
{
    if (separateur == u'\t')
        return QStringLiteral("la tabulation");
    return QStringLiteral("le séparateur « %1 »").arg(separateur);
}

// The document's columns behind the headers, in the order of entetes() after its first.
const QStringList& colonnesEmployeurs()
{
    static const QStringList colonnes{"e_raison_sociale", "e_adresse",       "e_codepostal", "e_commune",
                                      "e_email",          "e_interlocuteur", "e_telephone",  "e_fax"};
    return colonnes;
}

} // namespace

QString ImportCsv::titre()
{
    return QStringLiteral("Importation CSV");
}

const QStringList& ImportCsv::entetes()
{
    static const QStringList liste{
        QStringLiteral("- Ne pas importer -"), QStringLiteral("Raison Sociale"), QStringLiteral("Adresse"),
        QStringLiteral("Code Postal"),         QStringLiteral("Commune"),        QStringLiteral("E-mail"),
        QStringLiteral("Interlocuteur"),       QStringLiteral("Téléphone"),      QStringLiteral("Fax")};
    return liste;
}

QString ImportCsv::nePasImporter()
{
    return entetes().first();
}

const QStringList& ImportCsv::encodages()
{
    static const QStringList liste{QStringLiteral("Mac Roman"),
                                   QStringLiteral("UTF-8"),
                                   QStringLiteral("UTF-16 BE (gros-boutiste)"),
                                   QStringLiteral("UTF-16 LE (petit-boutiste)"),
                                   QStringLiteral("UTF-32 BE (gros-boutiste)"),
                                   QStringLiteral("UTF-32 LE (petit-boutiste)")};
    return liste;
}

CsvEncodage ImportCsv::encodage(int position)
{
    static const CsvEncodage parPosition[] = {CsvEncodage::MacRoman,       CsvEncodage::Utf8,
                                              CsvEncodage::Utf16BigEndian, CsvEncodage::Utf16LittleEndian,
                                              CsvEncodage::Utf32BigEndian, CsvEncodage::Utf32LittleEndian};
    return position >= 0 && position < 6 ? parPosition[position] : CsvEncodage::Utf8;
}

QChar ImportCsv::separateur(const QString& element)
{
    if (element.compare(QStringLiteral("tabulation"), Qt::CaseInsensitive) == 0 ||
        element.compare(QStringLiteral("tab"), Qt::CaseInsensitive) == 0)
        return u'\t';
    return element.isEmpty() ? QChar(u',') : element.at(0);
}

QString ImportCsv::identifiantColonne(qsizetype index)
{
    return QStringLiteral("Col_%1").arg(index);
}

QString ImportCsv::messageEntetesEnDouble()
{
    return QStringLiteral("Veuillez choisir une en-tête DIFFERENTE pour chacune des colonnes à importer.");
}

QString ImportCsv::messageRaisonSocialeEtCommune()
{
    return QStringLiteral(
        "Pour importer des employeurs, vous devez sélectionner au moins une Raison Sociale et une Commune.");
}

QString ImportCsv::messageAucuneDonnee()
{
    return QStringLiteral("Aucune donnée à importer...");
}

LectureCsv ImportCsv::lire(const QString& chemin, QChar separateur, CsvEncodage encodage, bool titresSurLaPremiereLigne)
{
    LectureCsv lecture;
    const QString nom = QDir::toNativeSeparators(chemin);
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly) || QFileInfo(chemin).isDir()) {
        lecture.erreur = QFileInfo::exists(chemin) ? QStringLiteral("Le fichier « %1 » ne peut pas être lu.").arg(nom)
                                                   : QStringLiteral("Le fichier « %1 » n'existe pas.").arg(nom);
        return lecture;
    }
    const QString refus = CsvParser::refusDelimiteur(separateur);
    if (!refus.isEmpty()) {
        lecture.erreur = QStringLiteral("Ce séparateur ne peut pas être utilisé.");
        return lecture;
    }
    const auto parser =
        CsvParser::initWithInputStream(&fichier, encodageDeLaMarque(fichier.peek(4)).value_or(encodage), separateur);
    parser->setOptions(CsvOption::RecognizesBackslashesAsEscapes | CsvOption::SanitizesFields |
                       CsvOption::RecognizesComments);
    LecteurGrille grille(lecture, titresSurLaPremiereLigne);
    parser->setDelegate(&grille);
    if (parser->parse())
        return lecture;

    const CsvErreur& erreur = parser->erreur();
    lecture.ligneErreur = erreur.ligne;
    if (erreur.code == CsvErreur::DelimiteurInattendu)
        lecture.erreur = QStringLiteral("La lecture du fichier s'est arrêtée à la ligne %1, colonne %2 : après un "
                                        "champ, %3 ou une fin de ligne était attendu.")
                             .arg(erreur.ligne)
                             .arg(erreur.colonne)
                             .arg(nommerSeparateur(separateur));
    else
        lecture.erreur = QStringLiteral("Le fichier « %1 » ne peut pas être lu.").arg(nom);
    return lecture;
}

QString ImportCsv::refus(const QStringList& entetes, qsizetype nombreRangees)
{
    QStringList choisies;
    for (const QString& entete : entetes) {
        if (entete == nePasImporter())
            continue;
        if (choisies.contains(entete))
            return messageEntetesEnDouble();
        choisies << entete;
    }
    if (!choisies.contains(QStringLiteral("Raison Sociale")) || !choisies.contains(QStringLiteral("Commune")))
        return messageRaisonSocialeEtCommune();
    if (nombreRangees == 0)
        return messageAucuneDonnee();
    return QString();
}

int ImportCsv::importer(BaseDeDonnees& base, const LectureCsv& lecture, const QStringList& entetes, QString* erreur)
{
    const auto echec = [erreur](const QString& message) {
        if (erreur)
            *erreur = message;
        return -1;
    };
    if (const QString r = refus(entetes, lecture.rangees.size()); !r.isEmpty())
        return echec(r);

    // The grid's column giving each field, in the order of the statement's first eight values;
    // -1 for a field no column gives (a header beyond the grid gives none either).
    QList<qsizetype> sources(colonnesEmployeurs().size(), -1);
    for (qsizetype i = 0; i < qMin(entetes.size(), lecture.colonnes.size()); ++i) {
        const qsizetype champ = ImportCsv::entetes().indexOf(entetes.at(i)) - 1;
        if (champ >= 0)
            sources[champ] = i;
    }

    const auto nonImportes = [&](const QString& raison) {
        return echec(
            QStringLiteral("Les employeurs n'ont pas pu être importés : %1. Aucun n'a été ajouté.").arg(raison));
    };
    PointDeSauvegarde ecriture(base);
    if (!ecriture.estOuvert())
        return nonImportes(base.derniereErreur());
    Requete insertion(base, QStringLiteral("INSERT INTO employeurs (e_raison_sociale, e_adresse, e_codepostal, "
                                           "e_commune, e_email, e_interlocuteur, e_telephone, e_fax, "
                                           "e_contratmodele_id, e_conventionne) VALUES (:e_raison_sociale, "
                                           ":e_adresse, :e_codepostal, :e_commune, :e_email, :e_interlocuteur, "
                                           ":e_telephone, :e_fax, :e_contratmodele_id, :e_conventionne);"));
    if (!insertion.estPreparee())
        return nonImportes(ErreursSQLite::raison(insertion.code(), base.chemin()));
    int importes = 0;
    for (const Ligne& rangee : lecture.rangees) {
        insertion.reinitialiser();
        for (qsizetype champ = 0; champ < sources.size(); ++champ) {
            const qsizetype colonne = sources.at(champ);
            const QString valeur = colonne < 0 ? QString() : rangee.value(lecture.colonnes.at(colonne)).toString();
            insertion.lier(int(champ) + 1, texteNonNul(valeur));
        }
        // No template (as the form saves it), and the schema's default for "conventionné".
        insertion.lier(9, 0);
        insertion.lier(10, 1);
        if (const int code = insertion.executer(); code != SQLITE_DONE)
            return nonImportes(ErreursSQLite::raison(code, base.chemin()));
        ++importes;
    }
    if (!ecriture.valider())
        return nonImportes(base.derniereErreur());
    return importes;
}

} // namespace corvane
