#include "app/Captures.h"

#include "app/FenetrePrincipale.h"
#include "app/Sections.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QPixmap>
#include <QRegularExpression>
#include <QTimer>

#include <cstdio>
#include <memory>

namespace corvane::app {

namespace {

// Long enough for the first layout and for a section's contents to load after being shown.
constexpr int kDelaiPremiereCapture = 300;
constexpr int kDelaiEntreCaptures = 150;
// A map page loads its library and asks the maps service before it is drawn.
constexpr int kDelaiCarte = 3000;

// A picture of a section, or of what a command opens from it: the command is a menu
// action or a button of the section; the window it opens is pictured, then closed (the
// main window when it opens none).
struct Prise
{
    QString chemin;
    Section section;
    QString commande;
    int delai = kDelaiEntreCaptures;
};

QWidget* preparer(FenetrePrincipale& fenetre, const Prise& prise)
{
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
