#include "app/kit/GrilleValeurs.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace corvane::app {

GrilleValeurs::GrilleValeurs(QWidget* parent) : QWidget(parent)
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    m_grille = new QGridLayout;
    m_grille->setHorizontalSpacing(16);
    m_grille->setVerticalSpacing(4);
    mise->addLayout(m_grille);
    m_vide = new QLabel(this);
    m_vide->setObjectName(QStringLiteral("grilleVide"));
    m_vide->setWordWrap(true);
    m_vide->setEnabled(false);
    m_vide->hide();
    mise->addWidget(m_vide);
}

void GrilleValeurs::setTexteVide(const QString& texte)
{
    m_vide->setText(texte);
    m_vide->setVisible(m_lignes.isEmpty() && !texte.isEmpty());
}

void GrilleValeurs::setColonnes(int colonnes)
{
    m_colonnes = qMax(1, colonnes);
    const auto lignes = m_lignes;
    m_lignes.clear();
    qDeleteAll(m_etiquettes);
    m_etiquettes.clear();
    setLignes(lignes);
}

void GrilleValeurs::setLignes(const QList<QPair<QString, QString>>& lignes)
{
    // The labels of a line are kept when only the values change.
    if (lignes.size() != m_lignes.size()) {
        qDeleteAll(m_etiquettes);
        m_etiquettes.clear();
        const int parColonne = int((lignes.size() + m_colonnes - 1) / m_colonnes);
        for (int c = 0; c < m_colonnes; ++c) {
            // A label takes what its value leaves; a gap stands between two columns.
            m_grille->setColumnStretch(3 * c, 1);
            if (c > 0)
                m_grille->setColumnMinimumWidth(3 * c - 1, 24);
        }
        for (int i = 0; i < lignes.size(); ++i) {
            const int rangee = parColonne ? i % parColonne : 0;
            const int colonne = parColonne ? 3 * (i / parColonne) : 0;
            auto* libelle = new QLabel(this);
            libelle->setObjectName(QStringLiteral("libelle%1").arg(i));
            auto* valeur = new QLabel(this);
            valeur->setObjectName(QStringLiteral("valeur%1").arg(i));
            valeur->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            valeur->setTextInteractionFlags(Qt::TextSelectableByMouse);
            m_grille->addWidget(libelle, rangee, colonne);
            m_grille->addWidget(valeur, rangee, colonne + 1);
            m_etiquettes << libelle << valeur;
        }
    }
    m_lignes = lignes;
    for (int i = 0; i < lignes.size(); ++i) {
        m_etiquettes.at(2 * i)->setText(lignes.at(i).first);
        m_etiquettes.at(2 * i + 1)->setText(lignes.at(i).second);
    }
    m_vide->setVisible(m_lignes.isEmpty() && !m_vide->text().isEmpty());
}

QString GrilleValeurs::valeur(const QString& libelle) const
{
    for (const auto& [l, v] : m_lignes)
        if (l == libelle)
            return v;
    return {};
}

} // namespace corvane::app
