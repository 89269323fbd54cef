#include "app/PageSection.h"

#include <QLabel>
#include <QVBoxLayout>

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

void PageSection::setFile(const QString& chemin)
{
    m_chemin = chemin;
}

PageAVenir::PageAVenir(Section section, QWidget* parent) : PageSection(section, parent)
{
    auto* note =
        new QLabel(QStringLiteral("Cette section n'est pas encore disponible dans cette version de Corvane."), this);
    note->setObjectName(QStringLiteral("noteAVenir"));
    note->setEnabled(false);
    contenu()->addWidget(note);
    contenu()->addStretch(1);
}

} // namespace corvane::app
