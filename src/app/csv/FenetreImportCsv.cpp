#include "app/csv/FenetreImportCsv.h"

#include "app/Environnement.h"
#include "app/csv/ModeleGrilleCsv.h"
#include "exchange/ImportCsv.h"
#include "store/Dialogues.h"
#include "store/Document.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStandardPaths>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace corvane::app {

FenetreImportCsv::FenetreImportCsv(Environnement& environnement, Document& document, QWidget* parent)
    : QDialog(parent), m_environnement(environnement), m_document(document)
{
    setObjectName(QStringLiteral("fenetreImportCsv"));
    setWindowTitle(ImportCsv::titre());
    auto* mise = new QVBoxLayout(this);
    auto* forme = new QFormLayout;

    auto* ligneFichier = new QHBoxLayout;
    m_fichier = new QLineEdit(this);
    m_fichier->setObjectName(QStringLiteral("champFichierCsv"));
    m_fichier->setReadOnly(true);
    m_fichier->setPlaceholderText(QStringLiteral("Aucun fichier choisi"));
    auto* choisir = new QPushButton(QStringLiteral("Choisir…"), this);
    choisir->setObjectName(QStringLiteral("boutonChoisirCsv"));
    choisir->setAutoDefault(false);
    ligneFichier->addWidget(m_fichier, 1);
    ligneFichier->addWidget(choisir);
    forme->addRow(QStringLiteral("Fichier :"), ligneFichier);

    // The delimiter is the first character of the item, a tab for "Tabulation".
    m_separateur = new QComboBox(this);
    m_separateur->setObjectName(QStringLiteral("listeSeparateursCsv"));
    m_separateur->addItems({QStringLiteral(", (virgule)"), QStringLiteral("; (point-virgule)"),
                            QStringLiteral("Tabulation"), QStringLiteral(": (deux-points)"),
                            QStringLiteral("| (barre verticale)")});
    forme->addRow(QStringLiteral("&Séparateur :"), m_separateur);

    m_encodage = new QComboBox(this);
    m_encodage->setObjectName(QStringLiteral("listeEncodagesCsv"));
    m_encodage->addItems(ImportCsv::encodages());
    m_encodage->setCurrentIndex(1);
    forme->addRow(QStringLiteral("&Encodage :"), m_encodage);

    m_titres = new QCheckBox(QStringLiteral("Noms des colonnes sur la première ligne"), this);
    m_titres->setObjectName(QStringLiteral("caseTitresCsv"));
    forme->addRow(QString(), m_titres);
    mise->addLayout(forme);

    m_message = new QLabel(this);
    m_message->setObjectName(QStringLiteral("messageLectureCsv"));
    m_message->setWordWrap(true);
    m_message->setStyleSheet(QStringLiteral("QLabel { color: #c0392b; }"));
    m_message->hide();
    mise->addWidget(m_message);

    auto* aide =
        new QLabel(QStringLiteral("Cliquez sur l'en-tête d'une colonne pour choisir ce qu'elle contient."), this);
    mise->addWidget(aide);
    m_modele = new ModeleGrilleCsv(this);
    m_vue = new QTableView(this);
    m_vue->setObjectName(QStringLiteral("grilleCsv"));
    m_vue->setModel(m_modele);
    m_vue->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // A click on a header chooses what the column holds; it selects nothing.
    m_vue->setSelectionMode(QAbstractItemView::NoSelection);
    m_vue->setAlternatingRowColors(true);
    m_vue->setWordWrap(false);
    m_vue->horizontalHeader()->setSectionsClickable(true);
    m_vue->horizontalHeader()->setHighlightSections(false);
    m_vue->horizontalHeader()->setDefaultSectionSize(160);
    mise->addWidget(m_vue, 1);

    auto* boutons = new QHBoxLayout;
    auto* fermer = new QPushButton(QStringLiteral("Fermer"), this);
    fermer->setObjectName(QStringLiteral("boutonFermerImportCsv"));
    fermer->setAutoDefault(false);
    m_importer = new QPushButton(QStringLiteral("Importer"), this);
    m_importer->setObjectName(QStringLiteral("boutonImporterCsv"));
    m_importer->setAutoDefault(false);
    boutons->addStretch(1);
    boutons->addWidget(fermer);
    boutons->addWidget(m_importer);
    mise->addLayout(boutons);

    connect(choisir, &QPushButton::clicked, this, &FenetreImportCsv::choisirFichier);
    connect(m_separateur, &QComboBox::currentIndexChanged, this, &FenetreImportCsv::relire);
    connect(m_encodage, &QComboBox::currentIndexChanged, this, &FenetreImportCsv::relire);
    connect(m_titres, &QCheckBox::toggled, this, &FenetreImportCsv::relire);
    connect(m_vue->horizontalHeader(), &QHeaderView::sectionClicked, this, &FenetreImportCsv::menuEntete);
    connect(fermer, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_importer, &QPushButton::clicked, this, &FenetreImportCsv::importer);
    resize(820, 520);
}

FenetreImportCsv::~FenetreImportCsv() = default;

bool FenetreImportCsv::choisirFichier()
{
    const QString chemin = m_environnement.dialogues.choisirFichierAOuvrir(
        ImportCsv::titre(), QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation), {"csv"});
    if (chemin.isEmpty())
        return false;
    setFichier(chemin);
    return true;
}

void FenetreImportCsv::setFichier(const QString& chemin)
{
    m_chemin = chemin;
    m_fichier->setText(QDir::toNativeSeparators(chemin));
    // Another file's columns are not this one's.
    m_modele->setLecture({});
    relire();
}

void FenetreImportCsv::relire()
{
    if (m_chemin.isEmpty())
        return;
    m_modele->setLecture(ImportCsv::lire(m_chemin, ImportCsv::separateur(m_separateur->currentText()),
                                         ImportCsv::encodage(m_encodage->currentIndex()), m_titres->isChecked()));
    // Each column as wide as what it shows, within reason: a long address is not cut to a
    // few letters, nor does it push the others out of sight.
    m_vue->resizeColumnsToContents();
    for (int colonne = 0; colonne < m_modele->columnCount(); ++colonne)
        m_vue->setColumnWidth(colonne, std::clamp(m_vue->columnWidth(colonne), 120, 320));
    const LectureCsv& lecture = m_modele->lecture();
    QString message = lecture.erreur;
    if (lecture.ligneErreur > 0) {
        const qsizetype n = lecture.rangees.size();
        message += QLatin1Char('\n') +
                   (n == 0 ? QStringLiteral("Aucune ligne n'a pu être lue avant.")
                           : QStringLiteral("Seules les %1 %2 avant sont affichées, et seront seules importées.")
                                 .arg(n)
                                 .arg(n > 1 ? QStringLiteral("lignes lues") : QStringLiteral("ligne lue")));
    }
    m_message->setText(message);
    m_message->setVisible(!message.isEmpty());
}

QMenu* FenetreImportCsv::menuEntete(int colonne)
{
    if (colonne < 0 || colonne >= m_modele->columnCount())
        return nullptr;
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("menuEnteteCsv"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto* groupe = new QActionGroup(menu);
    for (const QString& entete : ImportCsv::entetes()) {
        QAction* action = menu->addAction(entete);
        action->setCheckable(true);
        action->setChecked(entete == m_modele->entetes().at(colonne));
        groupe->addAction(action);
        connect(action, &QAction::triggered, this, [this, colonne, entete] { m_modele->setEntete(colonne, entete); });
    }
    QHeaderView* entetes = m_vue->horizontalHeader();
    menu->popup(entetes->viewport()->mapToGlobal(QPoint(entetes->sectionViewportPosition(colonne), entetes->height())));
    return menu;
}

bool FenetreImportCsv::importer()
{
    const LectureCsv& lecture = m_modele->lecture();
    const QString refus = ImportCsv::refus(m_modele->entetes(), lecture.rangees.size());
    if (!refus.isEmpty()) {
        m_environnement.dialogues.information(ImportCsv::titre(), refus, QStringLiteral("Fermer"));
        return false;
    }
    // Never a partial import the user did not agree to.
    if (!lecture.estComplete()) {
        const qsizetype n = lecture.rangees.size();
        const QString question =
            QStringLiteral("%1\n\n%2 Importer quand même ?")
                .arg(lecture.erreur, n > 1 ? QStringLiteral("Seules les %1 lignes lues avant seront importées.").arg(n)
                                           : QStringLiteral("Seule la ligne lue avant sera importée."));
        if (m_environnement.dialogues.question(ImportCsv::titre(), question,
                                               {QStringLiteral("Importer"), QStringLiteral("Annuler")}) !=
            QStringLiteral("Importer"))
            return false;
    }
    QString erreur;
    const int importes = ImportCsv::importer(m_document.base(), lecture, m_modele->entetes(), &erreur);
    if (importes < 0) {
        m_environnement.dialogues.information(ImportCsv::titre(), erreur, QStringLiteral("Fermer"));
        return false;
    }
    m_environnement.dialogues.information(ImportCsv::titre(),
                                          importes > 1 ? QStringLiteral("%1 employeurs importés.").arg(importes)
                                                       : QStringLiteral("1 employeur importé."),
                                          QStringLiteral("Fermer")); // the refusals guarantee at least one row
    accept();
    return true;
}

} // namespace corvane::app
