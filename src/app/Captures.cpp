#include "app/Captures.h"

#include "app/FenetrePrincipale.h"
#include "app/Sections.h"
#include "app/csv/FenetreImportCsv.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPixmap>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <memory>

namespace corvane::app {

namespace {

// Long enough for the first layout and for a section's contents to load after being shown.
constexpr int kDelaiPremiereCapture = 300;
constexpr int kDelaiEntreCaptures = 150;
// A map page loads its library and asks the maps service before it is drawn.
constexpr int kDelaiCarte = 3000;

// What a step of its own leaves to picture: the window it opened, or the main window.
using Mise = std::function<QWidget*(FenetrePrincipale&)>;

// A picture of a section, or of what a command opens from it: the command is a menu
// action or a button of the section; the window it opens is pictured, then closed (the
// main window when it opens none). A section that needs more than one command (a tab, a
// selection) has a step of its own instead.
struct Prise
{
    QString chemin;
    Section section;
    QString commande;
    int delai = kDelaiEntreCaptures;
    Mise mise = {};
};

QDialog* fenetreOuverte(FenetrePrincipale& fenetre)
{
    for (QDialog* d : fenetre.findChildren<QDialog*>())
        if (d->isVisible())
            return d;
    return nullptr;
}

// The Manager section on one of its tabs, with the first row of `table` selected when it has one.
Mise ongletManager(int onglet, const QString& table = {})
{
    return [onglet, table](FenetrePrincipale& fenetre) -> QWidget* {
        if (auto* onglets = fenetre.findChild<QTabWidget*>(QStringLiteral("ongletsManager")))
            onglets->setCurrentIndex(onglet);
        if (auto* vue = table.isEmpty() ? nullptr : fenetre.findChild<QTableView*>(table))
            if (vue->model() && vue->model()->rowCount() > 0)
                vue->selectRow(0);
        return &fenetre;
    };
}

// The proposition window: the newest proposition's when there is one, else a new one.
QWidget* fenetreProposition(FenetrePrincipale& fenetre)
{
    ongletManager(0, QStringLiteral("listePropositions"))(fenetre);
    auto* vue = fenetre.findChild<QTableView*>(QStringLiteral("listePropositions"));
    const bool choisie = vue && vue->selectionModel() && vue->selectionModel()->hasSelection();
    if (auto* bouton = fenetre.findChild<QAbstractButton*>(
            choisie ? QStringLiteral("boutonModifierProposition") : QStringLiteral("boutonNouvelleProposition")))
        bouton->click();
    return fenetreOuverte(fenetre);
}

// The CSV import window on a small list of employers, as a user would have saved it.
QWidget* fenetreImportCsv(FenetrePrincipale& fenetre, const QString& fichier)
{
    QFile csv(fichier);
    if (!csv.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return nullptr;
    csv.write("Raison sociale,Adresse,Code postal,Commune,Téléphone,Courriel\n"
              "Théâtre du Rond-Point,2 bis avenue Franklin D. Roosevelt,75008,Paris,0144959800,"
              "accueil@theatredurondpoint.example\n"
              "La Comédie de Béthune,138 rue du 11 novembre,62400,Béthune,0321632900,contact@comediedebethune.example\n"
              "\"Festival Les Nuits d'Été, association\",12 place du Marché,24200,Sarlat-la-Canéda,0553310945,"
              "nuits.ete@exemple.fr\n"
              "Le Channel,173 boulevard Gambetta,62100,Calais,0321467710,billetterie@lechannel.example\n"
              "Salle Poirel,3 rue Victor Poirel,54000,Nancy,0383325310,poirel@nancy.example\n");
    csv.close();
    QAction* action = fenetre.action(QStringLiteral("actionImportCsv"));
    if (!action)
        return nullptr;
    action->trigger();
    auto* importation = fenetre.findChild<FenetreImportCsv*>();
    if (!importation || !importation->isVisible())
        return fenetreOuverte(fenetre);
    if (auto* titres = importation->findChild<QCheckBox*>(QStringLiteral("caseTitresCsv")))
        titres->setChecked(true);
    importation->setFichier(fichier);
    return importation;
}

QWidget* preparer(FenetrePrincipale& fenetre, const Prise& prise)
{
    if (prise.mise)
        return prise.mise(fenetre);
    if (prise.commande.isEmpty())
        return &fenetre;
    if (QAction* action = fenetre.action(prise.commande)) {
        action->trigger();
        const QList<QDialog*> fenetres = fenetre.findChildren<QDialog*>();
        for (QDialog* d : fenetres)
            if (d->isVisible())
                return d;
        return nullptr;
    }
    if (auto* bouton = fenetre.findChild<QAbstractButton*>(prise.commande)) {
        bouton->click();
        // A button that opens a window of its own: that window is pictured.
        for (QDialog* d : fenetre.findChildren<QDialog*>())
            if (d->isVisible())
                return d;
    }
    return &fenetre;
}

bool enregistrer(QWidget& fenetre, const QString& chemin)
{
    if (fenetre.grab().save(chemin, "PNG"))
        return true;
    std::fprintf(stderr, "corvane: impossible d'enregistrer la capture %s\n", qPrintable(chemin));
    return false;
}

// Shows one section after another, letting each settle before its picture is taken.
void prendreSuivante(FenetrePrincipale& fenetre, std::shared_ptr<QList<Prise>> prises, bool reussi)
{
    if (prises->isEmpty()) {
        QApplication::exit(reussi ? 0 : 1);
        return;
    }
    const Prise prise = prises->takeFirst();
    fenetre.afficherSection(prise.section);
    QWidget* cible = preparer(fenetre, prise);
    QTimer::singleShot(prise.delai, &fenetre, [&fenetre, prises, prise, reussi, cible] {
        const bool ok = cible && enregistrer(*cible, prise.chemin);
        if (cible && cible != &fenetre)
            cible->close();
        prendreSuivante(fenetre, prises, reussi && ok);
    });
}

} // namespace

QString nomDeFichierSection(const QString& titre)
{
    QString nom;
    for (const QChar c : titre.normalized(QString::NormalizationForm_D))
        if (c.unicode() < 128)
            nom += c.toLower();
    static const QRegularExpression autres(QStringLiteral("[^a-z0-9]+"));
    nom.replace(autres, QStringLiteral("-"));
    while (nom.startsWith(u'-'))
        nom.remove(0, 1);
    while (nom.endsWith(u'-'))
        nom.chop(1);
    return nom;
}

void programmerCaptures(FenetrePrincipale& fenetre, const QString& destination)
{
    QTimer::singleShot(kDelaiPremiereCapture, &fenetre, [&fenetre, destination] {
        if (!QFileInfo(destination).isDir()) {
            QApplication::exit(enregistrer(fenetre, destination) ? 0 : 1);
            return;
        }
        const QDir dossier(destination);
        const bool ok = enregistrer(fenetre, dossier.filePath(QStringLiteral("fenetre-principale.png")));
        auto prises = std::make_shared<QList<Prise>>();
        for (const DescriptionSection& d : sectionsNavigation())
            prises->append(
                {dossier.filePath(QStringLiteral("section-%1.png").arg(nomDeFichierSection(d.titre))), d.section, {}});
        const Prise fenetres[] = {
            {dossier.filePath(QStringLiteral("profil.png")), Section::Fichiers, QStringLiteral("actionProfil")},
            {dossier.filePath(QStringLiteral("periodes.png")), Section::Fichiers, QStringLiteral("actionPeriodes")},
            {dossier.filePath(QStringLiteral("modeles-contrat.png")), Section::Fichiers,
             QStringLiteral("actionModeles")},
            {dossier.filePath(QStringLiteral("preferences.png")), Section::Fichiers,
             QStringLiteral("actionPreferences")},
            {dossier.filePath(QStringLiteral("formulaire-contrat.png")), Section::Contrats,
             QStringLiteral("boutonNouveauContrat")},
            {dossier.filePath(QStringLiteral("formulaire-securite-sociale.png")), Section::SecuriteSociale,
             QStringLiteral("boutonNouveauSS")},
            {dossier.filePath(QStringLiteral("versements-pole-emploi.png")), Section::PoleEmploi,
             QStringLiteral("boutonVersements")},
            {dossier.filePath(QStringLiteral("versements-conges.png")), Section::Conges,
             QStringLiteral("boutonHistoriqueConges")},
            {dossier.filePath(QStringLiteral("auto-entrepreneur.png")), Section::Fiscalite,
             QStringLiteral("boutonAutoEntrepreneur")},
            {dossier.filePath(QStringLiteral("formulaire-frais.png")), Section::Frais,
             QStringLiteral("boutonNouveauFrais")},
            {dossier.filePath(QStringLiteral("categories-frais.png")), Section::Frais,
             QStringLiteral("boutonCategoriesFrais")},
            {dossier.filePath(QStringLiteral("formulaire-droits-voisins.png")), Section::DroitsVoisins,
             QStringLiteral("boutonNouveauDv")},
            {dossier.filePath(QStringLiteral("trajets.png")), Section::Employeurs, QStringLiteral("boutonTrajets"),
             kDelaiCarte},
        };
        for (const Prise& p : fenetres)
            prises->append(p);
        // The Manager's other tabs, its proposition window, and the CSV import on a file of its own.
        const Section manager = Section::Manager;
        prises->append({dossier.filePath(QStringLiteral("manager-personnel.png")), manager, {}, kDelaiEntreCaptures,
                        ongletManager(1)});
        prises->append({dossier.filePath(QStringLiteral("manager-evenements.png")), manager, {}, kDelaiEntreCaptures,
                        ongletManager(2, QStringLiteral("tableEvenements"))});
        prises->append({dossier.filePath(QStringLiteral("proposition.png")), manager, {}, kDelaiEntreCaptures,
                        fenetreProposition});
        auto temporaire = std::make_shared<QTemporaryDir>();
        prises->append({dossier.filePath(QStringLiteral("import-csv.png")), Section::Employeurs, {},
                        kDelaiEntreCaptures, [temporaire](FenetrePrincipale& f) -> QWidget* {
                            return temporaire->isValid()
                                       ? fenetreImportCsv(f, temporaire->filePath(QStringLiteral("Salles.csv")))
                                       : nullptr;
                        }});
        prendreSuivante(fenetre, prises, ok);
    });
}

namespace {

class GuetPeinture : public QObject
{
public:
    explicit GuetPeinture(QWidget& fenetre) : QObject(&fenetre), m_fenetre(fenetre) {}

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override
    {
        if (evenement->type() == QEvent::Paint && !m_vue && objet->isWidgetType() &&
            static_cast<QWidget*>(objet)->window() == &m_fenetre) {
            m_vue = true;
            // The paint event is being handled: report once it is done.
            QTimer::singleShot(0, qApp, [] {
                std::fputs("peinte\n", stdout);
                std::fflush(stdout);
                QCoreApplication::quit();
            });
        }
        return QObject::eventFilter(objet, evenement);
    }

private:
    QWidget& m_fenetre;
    bool m_vue = false;
};

} // namespace

void quitterApresPremierePeinture(QWidget& fenetre)
{
    qApp->installEventFilter(new GuetPeinture(fenetre));
}

} // namespace corvane::app
