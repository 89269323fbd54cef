#include "app/FenetrePreferences.h"

#include "app/PanneauPreferencesAlertes.h"
#include "app/PanneauPreferencesGeneral.h"
#include "app/PanneauPreferencesSauvegardes.h"
#include "app/kit/Raccourcis.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace corvane::app {

FenetrePreferences::FenetrePreferences(Reglages& reglages, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("fenetrePreferences"));
    setWindowTitle(QStringLiteral("Préférences"));

    m_liste = new QListWidget(this);
    m_liste->setObjectName(QStringLiteral("listePanneauxPreferences"));
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->setFixedWidth(150);
    m_liste->setSpacing(3);
    m_pile = new QStackedWidget(this);
    m_pile->setObjectName(QStringLiteral("pilePanneauxPreferences"));

    auto* corps = new QHBoxLayout;
    corps->addWidget(m_liste);
    corps->addWidget(m_pile, 1);

    auto* boutons = new QDialogButtonBox(this);
    auto* fermer = boutons->addButton(QStringLiteral("Fermer"), QDialogButtonBox::AcceptRole);
    fermer->setObjectName(QStringLiteral("boutonFermerPreferences"));
    connect(boutons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* disposition = new QVBoxLayout(this);
    disposition->addLayout(corps, 1);
    disposition->addWidget(boutons);

    connect(m_liste, &QListWidget::currentRowChanged, m_pile, &QStackedWidget::setCurrentIndex);

    m_general = new PanneauPreferencesGeneral(reglages);
    m_sauvegardes = new PanneauPreferencesSauvegardes(reglages);
    m_alertes = new PanneauPreferencesAlertes(reglages);
    ajouterPanneau(QStringLiteral("Général"), m_general);
    ajouterPanneau(QStringLiteral("Sauvegardes"), m_sauvegardes);
    ajouterPanneau(QStringLiteral("Alertes"), m_alertes);
    m_liste->setCurrentRow(0);
    attribuerRaccourcis(this, QString());
}

int FenetrePreferences::ajouterPanneau(const QString& titre, QWidget* panneau)
{
    // A tall pane scrolls instead of stretching the window past the screen.
    auto* defilement = new QScrollArea(m_pile);
    defilement->setWidgetResizable(true);
    defilement->setFrameShape(QFrame::NoFrame);
    defilement->setWidget(panneau);
    // Wide enough that no label is cut; only the height may scroll.
    defilement->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const QSize voulu = panneau->sizeHint();
    defilement->setMinimumWidth(qMin(voulu.width() + 20, 900));
    defilement->setMinimumHeight(qMin(voulu.height(), 600));
    const int index = m_pile->addWidget(defilement);
    m_liste->addItem(titre);
    if (panneau->metaObject()->indexOfSignal("modifie()") >= 0)
        connect(panneau, SIGNAL(modifie()), this, SIGNAL(reglagesModifies()));
    return index;
}

void FenetrePreferences::afficherPanneau(const QString& titre)
{
    const QList<QListWidgetItem*> trouves = m_liste->findItems(titre, Qt::MatchExactly);
    if (!trouves.isEmpty())
        m_liste->setCurrentItem(trouves.first());
}

QString FenetrePreferences::panneauAffiche() const
{
    const QListWidgetItem* element = m_liste->currentItem();
    return element ? element->text() : QString();
}

QStringList FenetrePreferences::titresPanneaux() const
{
    QStringList titres;
    for (int i = 0; i < m_liste->count(); ++i)
        titres << m_liste->item(i)->text();
    return titres;
}

void FenetrePreferences::keyPressEvent(QKeyEvent* evenement)
{
    // Return confirms the field being typed in; it must not close the window.
    if (evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter) {
        evenement->accept();
        return;
    }
    QDialog::keyPressEvent(evenement);
}

void FenetrePreferences::setFile(const QString& chemin)
{
    m_sauvegardes->setFile(chemin);
}

} // namespace corvane::app
