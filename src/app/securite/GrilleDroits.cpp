#include "app/securite/GrilleDroits.h"

#include "app/kit/ChampDate.h"
#include "regimes/SecuriteSociale.h"
#include "store/Document.h"
#include "store/Horloge.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

const QString kCle = QStringLiteral("securite_sociale_verification");

} // namespace

GrilleDroits::GrilleDroits(QWidget* parent) : QGroupBox(QStringLiteral("Vérification des droits"), parent)
{
    auto* mise = new QVBoxLayout(this);
    auto* ligneJour = new QHBoxLayout;
    auto* etiquette = new QLabel(QStringLiteral("Droits ouverts au :"), this);
    m_jour = new ChampDate(this);
    m_jour->setObjectName(QStringLiteral("dateVerification"));
    m_jour->setDate(Horloge::aujourdhui());
    etiquette->setBuddy(m_jour);
    ligneJour->addWidget(etiquette);
    ligneJour->addWidget(m_jour);
    ligneJour->addStretch(1);
    mise->addLayout(ligneJour);

    m_grille = new QWidget(this);
    m_grille->setObjectName(QStringLiteral("grilleDroits"));
    auto* grille = new QGridLayout(m_grille);
    grille->setContentsMargins(0, 0, 0, 0);
    grille->setHorizontalSpacing(16);
    for (int rangee = 0; rangee < 4; ++rangee) {
        QList<QLabel*> cellules;
        for (int colonne = 0; colonne < 4; ++colonne) {
            auto* cellule = new QLabel(m_grille);
            cellule->setObjectName(QStringLiteral("droit%1%2").arg(rangee).arg(colonne));
            if (rangee == 0) {
                QFont police = cellule->font();
                police.setBold(true);
                cellule->setFont(police);
            }
            grille->addWidget(cellule, rangee, colonne);
            cellules << cellule;
        }
        m_cellules << cellules;
    }
    // Each benefit sits beside its answer; the space goes after the second answer.
    grille->setColumnStretch(4, 1);
    grille->setColumnMinimumWidth(1, 40);
    mise->addWidget(m_grille);

    m_sansContrat = new QLabel(SecuriteSociale::messageSansContrat(), this);
    m_sansContrat->setObjectName(QStringLiteral("messageSansContrat"));
    m_sansContrat->setWordWrap(true);
    mise->addWidget(m_sansContrat);

    connect(m_jour, &ChampDate::userDateChanged, this, &GrilleDroits::jourChoisi);
    afficher();
}

GrilleDroits::~GrilleDroits() = default;

void GrilleDroits::setDocument(Document* document)
{
    m_modele = document && document->estOuvert() ? std::make_unique<SecuriteSociale>(document->base()) : nullptr;
    m_droits = Table();
    afficher();
}

QDate GrilleDroits::jour() const
{
    return m_jour->date();
}

void GrilleDroits::actualiser()
{
    if (m_modele) {
        const QDate retenu = m_modele->retrouveDatePreferee(kCle).date();
        const QSignalBlocker bloque(m_jour);
        m_jour->setDate(retenu.isValid() ? retenu : Horloge::aujourdhui());
        m_droits = m_modele->verifieLesDroits(m_jour->date());
    } else {
        m_droits = Table();
    }
    afficher();
}

void GrilleDroits::jourChoisi()
{
    if (!m_modele)
        return;
    m_modele->enregistreDatePreferee(kCle, m_jour->date());
    m_droits = m_modele->verifieLesDroits(m_jour->date());
    afficher();
    emit ecrit();
}

void GrilleDroits::afficher()
{
    m_jour->setEnabled(m_modele != nullptr);
    const bool grille = m_droits.size() == m_cellules.size();
    m_grille->setVisible(grille);
    // Without a document there is nothing to say; without a contract, why nothing can be said.
    m_sansContrat->setVisible(m_modele && !grille);
    if (!grille)
        return;
    for (int rangee = 0; rangee < m_cellules.size(); ++rangee)
        for (int colonne = 0; colonne < 4; ++colonne) {
            const QString texte = m_droits.rangees.at(rangee).value(colonne).toString();
            QLabel* cellule = m_cellules.at(rangee).at(colonne);
            cellule->setText(texte);
            if (colonne % 2 == 1)
                cellule->setStyleSheet(texte == QStringLiteral("Oui")   ? QStringLiteral("color: #26a269;")
                                       : texte == QStringLiteral("Non") ? QStringLiteral("color: #c01c28;")
                                                                        : QString());
        }
}

} // namespace corvane::app
