#include "app/PageSection.h"

#include "store/Document.h"

#include <QLabel>
#include <QVBoxLayout>
#include <utility>

namespace corvane::app {

PageSection::PageSection(Section section, QWidget* parent) : QWidget(parent), m_section(section)
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(24, 18, 24, 18);
    auto* titre = new QLabel(titreSection(section), this);
    titre->setObjectName(QStringLiteral("titreSection"));
    QFont police = titre->font();
    police.setPointSizeF(police.pointSizeF() * 1.6);
    police.setBold(true);
    titre->setFont(police);
    mise->addWidget(titre);
    m_contenu = new QVBoxLayout;
    m_contenu->setSpacing(10);
    mise->addLayout(m_contenu, 1);
}

void PageSection::setDocument(Document* document)
{
    if (m_document)
        disconnect(m_document, nullptr, this, nullptr);
    m_document = document;
    if (document)
        connect(document, &Document::tablesModifiees, this, &PageSection::tablesModifiees);
    m_perimee = true;
    m_ignorer = false;
    rechargerSiVisible();
}

QString PageSection::cheminDuFichier() const
{
    return m_document ? m_document->chemin() : QString();
}

void PageSection::tablesModifiees(const QSet<QString>& tables)
{
    if (std::exchange(m_ignorer, false) || !tables.intersects(tablesLues()))
        return;
    m_perimee = true;
    rechargerSiVisible();
}

void PageSection::perimer()
{
    m_perimee = true;
    rechargerSiVisible();
}

void PageSection::rechargerSiVisible()
{
    if (!m_perimee || !isVisible())
        return;
    m_perimee = false;
    recharger();
}

void PageSection::showEvent(QShowEvent* evenement)
{
    QWidget::showEvent(evenement);
    rechargerSiVisible();
}

} // namespace corvane::app
