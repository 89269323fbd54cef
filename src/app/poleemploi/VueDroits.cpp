#include "app/poleemploi/VueDroits.h"

#include "exchange/RapportSimulation.h"
#include "store/FormatFrancais.h"
#include "unemployment/Simulation.h"

#include <QEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

QLabel* titre(const QString& texte, QWidget* parent)
{
    auto* l = new QLabel(texte, parent);
    QFont police = l->font();
    police.setBold(true);
    l->setFont(police);
    return l;
}

// A short table: no scrolling, no editing, exactly as tall as its rows.
QTableWidget* tableau(const QString& nom, const QStringList& entetes, int rangees, QWidget* parent)
{
    auto* t = new QTableWidget(rangees, int(entetes.size()), parent);
    t->setObjectName(nom);
    t->setHorizontalHeaderLabels(entetes);
    t->verticalHeader()->hide();
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->setSelectionMode(QAbstractItemView::NoSelection);
    t->setFocusPolicy(Qt::NoFocus);
    t->setWordWrap(false);
    t->setAlternatingRowColors(true);
    t->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    t->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    t->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    t->verticalHeader()->setDefaultSectionSize(t->fontMetrics().height() + 8);
    t->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (int c = 1; c < t->columnCount(); ++c)
        t->horizontalHeader()->setSectionResizeMode(c, QHeaderView::ResizeToContents);
    t->setFixedHeight(t->horizontalHeader()->sizeHint().height() + rangees * t->verticalHeader()->defaultSectionSize() +
                      2 * t->frameWidth());
    return t;
}

void remplir(QTableWidget* t, const QList<QStringList>& rangees)
{
    t->clearContents();
    for (int r = 0; r < t->rowCount(); ++r)
        for (int c = 0; c < t->columnCount(); ++c) {
            auto* item = new QTableWidgetItem(rangees.value(r).value(c));
            // Figures are aligned on the right, as in the other lists.
            if (c > 0)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            t->setItem(r, c, item);
        }
}

QList<QStringList> enRangees(const QList<LignePeriode>& lignes)
{
    QList<QStringList> rangees;
    for (const LignePeriode& l : lignes)
        rangees << QStringList{l.libelle, l.valeur};
    return rangees;
}

} // namespace

VueDroits::VueDroits(QWidget* parent) : QWidget(parent)
{
    auto* grille = new QGridLayout(this);
    grille->setContentsMargins(0, 0, 0, 0);
    grille->setHorizontalSpacing(16);
    grille->setVerticalSpacing(4);

    m_compteRendu = new QTextBrowser(this);
    m_compteRendu->setObjectName(QStringLiteral("compteRenduDroits"));
    m_compteRendu->setOpenLinks(false);
    auto* gauche = new QVBoxLayout;
    gauche->setSpacing(4);
    gauche->addWidget(titre(QStringLiteral("Compte rendu"), this));
    gauche->addWidget(m_compteRendu, 1);
    gauche->addSpacing(6);
    gauche->addWidget(titre(QStringLiteral("Heures par emploi"), this));
    m_heures = tableau(QStringLiteral("tableHeures"), colonnesHeuresParEmploi(), 3, this);
    gauche->addWidget(m_heures);

    auto* droite = new QVBoxLayout;
    droite->setSpacing(4);
    droite->addWidget(titre(QStringLiteral("Allocation journalière"), this));
    m_allocations =
        tableau(QStringLiteral("tableAllocations"), {QStringLiteral("Libellé"), QStringLiteral("Montant")}, 5, this);
    droite->addWidget(m_allocations);
    droite->addSpacing(6);
    droite->addWidget(titre(QStringLiteral("Période analysée"), this));
    m_periode = tableau(QStringLiteral("tablePeriode"), {QStringLiteral("Libellé"), QStringLiteral("Valeur")}, 5, this);
    droite->addWidget(m_periode);
    droite->addSpacing(6);
    droite->addWidget(titre(QStringLiteral("Décompte des heures"), this));
    m_decompte =
        tableau(QStringLiteral("tableDecompte"), {QStringLiteral("Libellé"), QStringLiteral("Heures")}, 7, this);
    droite->addWidget(m_decompte);
    droite->addStretch(1);

    grille->addLayout(gauche, 0, 0);
    grille->addLayout(droite, 0, 1);
    grille->setColumnStretch(0, 3);
    grille->setColumnStretch(1, 2);
}

void VueDroits::afficher(const Simulation& s)
{
    m_lignes = s.compteRendu;
    m_message.clear();
    rendreCompteRendu();

    QList<QStringList> allocations;
    for (const LigneAllocation& a : s.tableauAllocations)
        allocations << QStringList{a.libelle, enEuros(a.montant)};
    remplir(m_allocations, allocations);
    remplir(m_periode, enRangees(s.affichePeriode()));
    remplir(m_heures, heuresParEmploi(s));
    remplir(m_decompte, enRangees(decompteDesHeures(s)));
}

void VueDroits::afficherMessage(const QString& message)
{
    m_lignes.clear();
    m_message = message;
    rendreCompteRendu();
    for (QTableWidget* t : {m_allocations, m_periode, m_heures, m_decompte})
        t->clearContents();
}

QColor VueDroits::couleur(LigneCompteRendu::Couleur couleur, const QColor& fond)
{
    const bool sombre = fond.lightness() < 128;
    switch (couleur) {
    case LigneCompteRendu::Rouge:
        return sombre ? QColor(0xff, 0x7b, 0x72) : QColor(0xb0, 0x1c, 0x1c);
    case LigneCompteRendu::Verte:
        return sombre ? QColor(0x56, 0xd3, 0x64) : QColor(0x17, 0x6f, 0x2c);
    case LigneCompteRendu::Normale:
        break;
    }
    return {};
}

void VueDroits::changeEvent(QEvent* evenement)
{
    QWidget::changeEvent(evenement);
    // Red and green follow the background; normal text takes the palette's own colour.
    if (evenement->type() == QEvent::PaletteChange)
        rendreCompteRendu();
}

void VueDroits::rendreCompteRendu()
{
    if (!m_message.isEmpty()) {
        m_compteRendu->setPlainText(m_message);
        return;
    }
    // The view's own palette is the new one when its change arrives; its child's may not be yet.
    const QColor fond = palette().color(QPalette::Base);
    // A line break of the report ends a paragraph; the paragraphs are set a little apart.
    QString html;
    QString paragraphe;
    const auto finir = [&] {
        if (!paragraphe.isEmpty())
            html += QStringLiteral("<p style=\"margin-top:0; margin-bottom:6px\">%1</p>").arg(paragraphe);
        paragraphe.clear();
    };
    for (const LigneCompteRendu& ligne : m_lignes) {
        QString style;
        if (ligne.couleur != LigneCompteRendu::Normale)
            style += QStringLiteral("color:%1;").arg(couleur(ligne.couleur, fond).name());
        if (ligne.gras)
            style += QStringLiteral("font-weight:bold;");
        const QStringList morceaux = ligne.texte.split(QLatin1Char('\n'));
        for (qsizetype i = 0; i < morceaux.size(); ++i) {
            if (i > 0)
                finir();
            if (!morceaux.at(i).isEmpty())
                paragraphe += QStringLiteral("<span style=\"%1\">%2</span>").arg(style, morceaux.at(i).toHtmlEscaped());
        }
    }
    finir();
    m_compteRendu->setHtml(html);
}

} // namespace corvane::app
