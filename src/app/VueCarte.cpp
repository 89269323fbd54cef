#include "app/VueCarte.h"

#include <QDesktopServices>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStandardPaths>
#include <QUrl>
#include <QVBoxLayout>

#ifdef CORVANE_AVEC_WEBENGINE
#include <QCoreApplication>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <unistd.h>
#endif

namespace corvane::app {

namespace {

const QString kRessources = QStringLiteral(":/carte");

} // namespace

void preparerMoteurWeb()
{
#ifdef CORVANE_AVEC_WEBENGINE
    // Read when the first view starts the engine.
    if (geteuid() == 0 && !qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX"))
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    if (!QCoreApplication::instance())
        QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
#endif
}

bool VueCarte::integree()
{
#ifdef CORVANE_AVEC_WEBENGINE
    return true;
#else
    return false;
#endif
}

VueCarte::VueCarte(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("vueCarte"));
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
#ifdef CORVANE_AVEC_WEBENGINE
    // The engine starts with the first page shown: a screen that never shows one costs nothing.
#else
    mise->addStretch(1);
    m_explication = new QLabel(
        QStringLiteral("Cette version de Corvane n'affiche pas les cartes elle-même : la carte s'ouvre dans votre "
                       "navigateur."),
        this);
    m_explication->setWordWrap(true);
    m_explication->setAlignment(Qt::AlignCenter);
    mise->addWidget(m_explication);
    auto* bouton = new QPushButton(QStringLiteral("Ouvrir la carte dans le navigateur"), this);
    bouton->setObjectName(QStringLiteral("boutonCarteNavigateur"));
    bouton->setEnabled(false);
    mise->addWidget(bouton, 0, Qt::AlignCenter);
    mise->addStretch(1);
    connect(bouton, &QPushButton::clicked, this, &VueCarte::ouvrirDansNavigateur);
#endif
}

void VueCarte::afficher(const QString& page)
{
    m_page = page;
#ifdef CORVANE_AVEC_WEBENGINE
    if (!m_vue) {
        if (page.isEmpty())
            return;
        creerVue();
    }
    m_vue->setHtml(page, QUrl(QStringLiteral("qrc:/carte/")));
#else
    findChild<QPushButton*>(QStringLiteral("boutonCarteNavigateur"))->setEnabled(!page.isEmpty());
#endif
}

#ifdef CORVANE_AVEC_WEBENGINE
void VueCarte::creerVue()
{
    preparerMoteurWeb();
    // The services are asked from a page of the program's resources; they want to know who asks.
    QWebEngineProfile* profil = QWebEngineProfile::defaultProfile();
    if (!profil->httpUserAgent().contains(QStringLiteral("Corvane/")))
        profil->setHttpUserAgent(profil->httpUserAgent() + QStringLiteral(" Corvane/" CORVANE_VERSION));
    m_vue = new QWebEngineView(this);
    m_vue->setObjectName(QStringLiteral("pageCarte"));
    m_vue->setContextMenuPolicy(Qt::NoContextMenu);
    m_vue->settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, true);
    m_vue->settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, true);
    layout()->addWidget(m_vue);
    connect(m_vue, &QWebEngineView::loadFinished, this, &VueCarte::chargementTermine);
}
#endif

void VueCarte::evaluer(const QString& script, std::function<void(const QVariant&)> rappel)
{
#ifdef CORVANE_AVEC_WEBENGINE
    if (!m_vue)
        return;
    QPointer<VueCarte> moi(this);
    m_vue->page()->runJavaScript(script, [moi, rappel = std::move(rappel)](const QVariant& resultat) {
        if (moi)
            rappel(resultat);
    });
#else
    Q_UNUSED(script);
    Q_UNUSED(rappel);
#endif
}

QString VueCarte::dossierNavigateur()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::CacheLocation)).filePath(QStringLiteral("carte"));
}

bool VueCarte::ouvrirDansNavigateur()
{
    if (m_page.isEmpty())
        return false;
    const QDir dossier(dossierNavigateur());
    if (!dossier.mkpath(QStringLiteral(".")))
        return false;
    // The files the page loads beside it, as the program holds them.
    QDirIterator fichiers(kRessources, QDir::Files, QDirIterator::Subdirectories);
    while (fichiers.hasNext()) {
        const QString source = fichiers.next();
        const QString cible = dossier.filePath(source.mid(kRessources.size() + 1));
        dossier.mkpath(QFileInfo(cible).path());
        QFile::remove(cible);
        if (!QFile::copy(source, cible))
            return false;
        QFile::setPermissions(cible, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    }
    QFile page(dossier.filePath(QStringLiteral("carte.html")));
    if (!page.open(QIODevice::WriteOnly | QIODevice::Truncate) || page.write(m_page.toUtf8()) < 0)
        return false;
    page.close();
    return QDesktopServices::openUrl(QUrl::fromLocalFile(page.fileName()));
}

} // namespace corvane::app
