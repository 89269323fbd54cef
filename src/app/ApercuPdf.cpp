#include "app/ApercuPdf.h"

#include "exchange/ExportPdf.h"
#include "store/Dialogues.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTextDocument>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

#ifdef CORVANE_AVEC_PDFWIDGETS
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPdfView>
#endif

namespace corvane::app {

namespace {

constexpr qreal pasDeZoom = 1.25;
constexpr qreal zoomMinimal = 0.25;
constexpr qreal zoomMaximal = 5.0;

void ouvrirAvecLeSysteme(const QString& chemin)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(chemin));
}

QAction* action(QToolBar* barre, const QString& nom, const QString& texte, const QKeySequence& raccourci)
{
    QAction* a = barre->addAction(texte);
    a->setObjectName(nom);
    a->setShortcut(raccourci);
    a->setToolTip(raccourci.isEmpty()
                      ? texte
                      : QStringLiteral("%1 (%2)").arg(texte, raccourci.toString(QKeySequence::NativeText)));
    return a;
}

} // namespace

struct ApercuPdf::Prive
{
#ifdef CORVANE_AVEC_PDFWIDGETS
    QPdfDocument* pdf = nullptr;
    QPdfView* vue = nullptr;
#endif
    QAction* precedente = nullptr;
    QAction* suivante = nullptr;
    QAction* agrandir = nullptr;
    QAction* reduire = nullptr;
    QAction* largeur = nullptr;
    QSpinBox* numero = nullptr;
    QLabel* total = nullptr;
    bool charge = false;
};

bool ApercuPdf::disponible()
{
#ifdef CORVANE_AVEC_PDFWIDGETS
    return true;
#else
    return false;
#endif
}

ApercuPdf::ApercuPdf(const QString& chemin, QWidget* parent)
    : QWidget(parent, Qt::Window), d(std::make_unique<Prive>()), m_chemin(chemin)
{
    setObjectName(QStringLiteral("apercuPdf"));
    setWindowTitle(QStringLiteral("Aperçu – %1").arg(QFileInfo(chemin).fileName()));
    resize(760, 900);

    auto* barre = new QToolBar(this);
    barre->setObjectName(QStringLiteral("barreApercu"));
    d->precedente = action(barre, QStringLiteral("pagePrecedente"), QStringLiteral("Page précédente"),
                           QKeySequence(Qt::CTRL | Qt::Key_Up));
    d->suivante = action(barre, QStringLiteral("pageSuivante"), QStringLiteral("Page suivante"),
                         QKeySequence(Qt::CTRL | Qt::Key_Down));
    barre->addWidget(new QLabel(QStringLiteral(" Page "), barre));
    d->numero = new QSpinBox(barre);
    d->numero->setObjectName(QStringLiteral("numeroPage"));
    d->numero->setMinimum(1);
    barre->addWidget(d->numero);
    d->total = new QLabel(barre);
    d->total->setObjectName(QStringLiteral("nombreDePages"));
    barre->addWidget(d->total);
    barre->addSeparator();
    d->reduire = action(barre, QStringLiteral("reduire"), QStringLiteral("Réduire"), QKeySequence::ZoomOut);
    d->agrandir = action(barre, QStringLiteral("agrandir"), QStringLiteral("Agrandir"), QKeySequence::ZoomIn);
    d->largeur = action(barre, QStringLiteral("ajusterLargeur"), QStringLiteral("Ajuster à la largeur"),
                        QKeySequence(Qt::CTRL | Qt::Key_0));
    barre->addSeparator();
    QAction* ailleurs = action(barre, QStringLiteral("ouvrirAilleurs"), QStringLiteral("Ouvrir avec…"), {});
    ailleurs->setToolTip(QStringLiteral("Ouvrir le fichier dans l'afficheur de PDF du système"));
    connect(ailleurs, &QAction::triggered, this, [this] { ouvrirAvecLeSysteme(m_chemin); });
    auto* fermer = new QAction(this);
    fermer->setShortcuts({QKeySequence::Close, QKeySequence(Qt::Key_Escape)});
    connect(fermer, &QAction::triggered, this, &QWidget::close);
    addAction(fermer);

    auto* disposition = new QVBoxLayout(this);
    disposition->setContentsMargins(0, 0, 0, 0);
    disposition->setSpacing(0);
    disposition->addWidget(barre);

#ifdef CORVANE_AVEC_PDFWIDGETS
    d->pdf = new QPdfDocument(this);
    d->charge = d->pdf->load(chemin) == QPdfDocument::Error::None && d->pdf->pageCount() > 0;
    d->vue = new QPdfView(this);
    d->vue->setObjectName(QStringLiteral("vuePdf"));
    d->vue->setDocument(d->pdf);
    d->vue->setPageMode(QPdfView::PageMode::MultiPage);
    d->vue->setZoomMode(QPdfView::ZoomMode::FitToWidth);
    disposition->addWidget(d->vue, 1);
    connect(d->vue->pageNavigator(), &QPdfPageNavigator::currentPageChanged, this, [this] { majCommandes(); });
    connect(d->vue, &QPdfView::zoomFactorChanged, this, [this] { majCommandes(); });
#endif
    if (!d->charge) {
        auto* message = new QLabel(
            disponible()
                ? QStringLiteral("Le fichier « %1 » ne peut pas être lu.").arg(QDir::toNativeSeparators(chemin))
                : QStringLiteral("L'aperçu n'est pas disponible : le fichier s'ouvre dans l'afficheur de "
                                 "PDF du système."),
            this);
        message->setObjectName(QStringLiteral("messageApercu"));
        message->setAlignment(Qt::AlignCenter);
        message->setWordWrap(true);
        disposition->addWidget(message, 1);
    }

    connect(d->precedente, &QAction::triggered, this, &ApercuPdf::pagePrecedente);
    connect(d->suivante, &QAction::triggered, this, &ApercuPdf::pageSuivante);
    connect(d->numero, &QSpinBox::valueChanged, this, [this](int numero) { allerALaPage(numero - 1); });
    connect(d->agrandir, &QAction::triggered, this, &ApercuPdf::agrandir);
    connect(d->reduire, &QAction::triggered, this, &ApercuPdf::reduire);
    connect(d->largeur, &QAction::triggered, this, &ApercuPdf::ajusterALaLargeur);
    majCommandes();
}

ApercuPdf::~ApercuPdf()
{
#ifdef CORVANE_AVEC_PDFWIDGETS
    // The view goes first: a document closing under it would make it report a page
    // change to a window already half destroyed.
    delete d->vue;
    delete d->pdf;
#endif
}

bool ApercuPdf::estCharge() const
{
    return d->charge;
}

int ApercuPdf::nombreDePages() const
{
#ifdef CORVANE_AVEC_PDFWIDGETS
    if (d->charge)
        return d->pdf->pageCount();
#endif
    return 0;
}

int ApercuPdf::pageCourante() const
{
#ifdef CORVANE_AVEC_PDFWIDGETS
    if (d->charge)
        return d->vue->pageNavigator()->currentPage();
#endif
    return 0;
}

void ApercuPdf::allerALaPage(int page)
{
#ifdef CORVANE_AVEC_PDFWIDGETS
    if (!d->charge)
        return;
    page = qBound(0, page, nombreDePages() - 1);
    if (page != pageCourante())
        d->vue->pageNavigator()->jump(page, QPointF(), d->vue->zoomFactor());
#else
    Q_UNUSED(page);
#endif
    majCommandes();
}

qreal ApercuPdf::zoom() const
{
#ifdef CORVANE_AVEC_PDFWIDGETS
    return d->vue->zoomFactor();
#else
    return 1;
#endif
}

void ApercuPdf::agrandir()
{
#ifdef CORVANE_AVEC_PDFWIDGETS
    d->vue->setZoomMode(QPdfView::ZoomMode::Custom);
    d->vue->setZoomFactor(qMin(zoomMaximal, zoom() * pasDeZoom));
#endif
}

void ApercuPdf::reduire()
{
#ifdef CORVANE_AVEC_PDFWIDGETS
    d->vue->setZoomMode(QPdfView::ZoomMode::Custom);
    d->vue->setZoomFactor(qMax(zoomMinimal, zoom() / pasDeZoom));
#endif
}

void ApercuPdf::ajusterALaLargeur()
{
#ifdef CORVANE_AVEC_PDFWIDGETS
    d->vue->setZoomMode(QPdfView::ZoomMode::FitToWidth);
#endif
}

void ApercuPdf::majCommandes()
{
    const int n = nombreDePages();
    const int page = pageCourante();
    {
        const QSignalBlocker bloque(d->numero);
        d->numero->setMaximum(qMax(1, n));
        d->numero->setValue(page + 1);
    }
    d->numero->setEnabled(n > 1);
    d->total->setText(QStringLiteral(" sur %1 ").arg(n));
    d->precedente->setEnabled(page > 0);
    d->suivante->setEnabled(page + 1 < n);
    d->agrandir->setEnabled(d->charge && zoom() < zoomMaximal);
    d->reduire->setEnabled(d->charge && zoom() > zoomMinimal);
    d->largeur->setEnabled(d->charge);
}

ApercuPdf* afficherPdf(const QString& chemin, QWidget* parent)
{
    if (!ApercuPdf::disponible()) {
        ouvrirAvecLeSysteme(chemin);
        return nullptr;
    }
    auto* apercu = new ApercuPdf(chemin, parent);
    apercu->setAttribute(Qt::WA_DeleteOnClose);
    apercu->show();
    apercu->raise();
    apercu->activateWindow();
    return apercu;
}

QString messageExportTermine(const QString& chemin)
{
    return QStringLiteral("Le fichier PDF a été enregistré :\n%1\n\nSouhaitez-vous l'afficher ?")
        .arg(QDir::toNativeSeparators(chemin));
}

ApercuPdf* proposerAffichage(const QString& chemin, Dialogues& dialogues, QWidget* parent)
{
    if (chemin.isEmpty())
        return nullptr;
    const QString afficher = QStringLiteral("Afficher");
    if (dialogues.question(ExportPdf::titreAlertes(), messageExportTermine(chemin),
                           {afficher, QStringLiteral("Fermer")}) != afficher)
        return nullptr;
    return afficherPdf(chemin, parent);
}

bool imprimerRapport(const QTextDocument& document, QWidget* parent)
{
    QPrinter imprimante(QPrinter::HighResolution);
    preparerImprimante(imprimante);
    QPrintDialog dialogue(&imprimante, parent);
    dialogue.setWindowTitle(QStringLiteral("Imprimer"));
    if (dialogue.exec() != QDialog::Accepted)
        return false;
    imprimer(document, imprimante);
    return true;
}

void preparerImprimante(QPrinter& imprimante)
{
    imprimante.setPageLayout(ExportPdf::miseEnPage());
}

void imprimer(const QTextDocument& document, QPrinter& imprimante)
{
    // The name the print queue shows.
    const QString titre = document.metaInformation(QTextDocument::DocumentTitle);
    if (!titre.isEmpty())
        imprimante.setDocName(titre);
    ExportPdf::mettreEnPages(document, imprimante);
}

} // namespace corvane::app
