#include "app/poleemploi/VueDeclaration.h"

#include "app/poleemploi/VueDroits.h"
#include "store/Dates.h"
#include "store/Document.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "unemployment/ActualisationMensuelle.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

QLabel* valeur(const QString& nom, QWidget* parent)
{
    auto* l = new QLabel(parent);
    l->setObjectName(nom);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    l->setMinimumWidth(l->fontMetrics().horizontalAdvance(QStringLiteral("− 0000")));
    return l;
}

// The rule of the profession, in words.
QString regle(const QString& profession)
{
    if (profession == QStringLiteral("Artiste"))
        return QStringLiteral("heures ÷ 10 × 1,3");
    if (profession == QStringLiteral("Ouvrier") || profession == QStringLiteral("Technicien"))
        return QStringLiteral("heures ÷ 8 × 1,4");
    return {};
}

QString moins(int jours)
{
    return jours == 0 ? QStringLiteral("0") : QStringLiteral("− %1").arg(jours);
}

} // namespace

VueDeclaration::VueDeclaration(QWidget* parent) : QWidget(parent)
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);

    m_choix = new QWidget(this);
    auto* choix = new QHBoxLayout(m_choix);
    choix->setContentsMargins(0, 0, 0, 0);
    m_mois = new QComboBox(m_choix);
    m_mois->setObjectName(QStringLiteral("choixMoisDeclaration"));
    for (int m = 1; m <= 12; ++m)
        m_mois->addItem(localeFrancaise().standaloneMonthName(m), m);
    m_annee = new QSpinBox(m_choix);
    m_annee->setObjectName(QStringLiteral("choixAnneeDeclaration"));
    m_annee->setRange(1950, 2100);
    m_annee->setGroupSeparatorShown(false);
    choix->addWidget(new QLabel(QStringLiteral("Mois déclaré :"), m_choix));
    choix->addWidget(m_mois);
    choix->addWidget(m_annee);

    auto* forme = new QFormLayout;
    forme->setLabelAlignment(Qt::AlignLeft);
    forme->setHorizontalSpacing(24);
    m_joursDuMois = valeur(QStringLiteral("joursDuMois"), this);
    // Their texts name the dates once computed; they are given room from the start.
    m_libelleAvantOuverture = new QLabel(QStringLiteral("Jours avant l'ouverture de vos droits"), this);
    m_avantOuverture = valeur(QStringLiteral("joursAvantOuverture"), this);
    m_libelleApresAujourdhui = new QLabel(QStringLiteral("Jours à venir après aujourd'hui"), this);
    m_apresAujourdhui = valeur(QStringLiteral("joursApresAujourdhui"), this);
    m_heures = valeur(QStringLiteral("heuresDuMois"), this);
    m_libelleNonCompenses = new QLabel(QStringLiteral("Jours non indemnisés pour ce travail"), this);
    m_nonCompenses = valeur(QStringLiteral("joursNonCompenses"), this);
    m_resultatTexte = valeur(QStringLiteral("joursIndemnises"), this);
    QFont gras = m_resultatTexte->font();
    gras.setBold(true);
    m_resultatTexte->setFont(gras);
    auto* libelleResultat = new QLabel(QStringLiteral("Jours indemnisés dans le mois"), this);
    libelleResultat->setFont(gras);
    forme->addRow(QStringLiteral("Jours dans le mois"), m_joursDuMois);
    forme->addRow(m_libelleAvantOuverture, m_avantOuverture);
    forme->addRow(m_libelleApresAujourdhui, m_apresAujourdhui);
    forme->addRow(QStringLiteral("Heures travaillées (contrats effectués commencés dans le mois)"), m_heures);
    forme->addRow(m_libelleNonCompenses, m_nonCompenses);
    forme->addRow(libelleResultat, m_resultatTexte);
    auto* bloc = new QHBoxLayout;
    bloc->addLayout(forme);
    bloc->addStretch(1);
    mise->addLayout(bloc);

    m_note = new QLabel(this);
    m_note->setObjectName(QStringLiteral("noteDeclaration"));
    m_note->setWordWrap(true);
    m_note->setTextFormat(Qt::PlainText);
    mise->addSpacing(8);
    mise->addWidget(m_note);
    mise->addStretch(1);

    choisirMois(Horloge::aujourdhui().month(), Horloge::aujourdhui().year());
    connect(m_mois, &QComboBox::activated, this, &VueDeclaration::calculer);
    connect(m_annee, &QSpinBox::valueChanged, this, &VueDeclaration::calculer);
}

void VueDeclaration::setDocument(Document* document)
{
    m_document = document;
}

void VueDeclaration::choisirMoisADeclarer(int debutAlerte, int finAlerte)
{
    const QDate aujourdhui = Horloge::aujourdhui();
    QDate mois = aujourdhui;
    if (aujourdhui.day() < debutAlerte && aujourdhui.day() <= finAlerte)
        mois = aujourdhui.addMonths(-1);
    choisirMois(mois.month(), mois.year());
}

void VueDeclaration::choisirMois(int mois, int annee)
{
    const QSignalBlocker bloqueMois(m_mois), bloqueAnnee(m_annee);
    m_mois->setCurrentIndex(mois - 1);
    m_annee->setValue(annee);
}

void VueDeclaration::calculer()
{
    const bool ouvert = m_document && m_document->estOuvert();
    for (QLabel* l : {m_joursDuMois, m_avantOuverture, m_apresAujourdhui, m_heures, m_nonCompenses, m_resultatTexte})
        l->clear();
    m_note->clear();
    m_resultat = 0;
    if (!ouvert)
        return;
    const int mois = m_mois->currentData().toInt();
    const int annee = m_annee->value();
    ActualisationMensuelle actualisation(m_document->base());
    const DetailJoursIndemnises d = actualisation.detailJoursIndemnisesDansLeMois(mois, annee);
    m_resultat = d.resultat();

    const QDate aujourdhui = Horloge::aujourdhui();
    m_libelleAvantOuverture->setText(
        d.ouverture.isValid()
            ? QStringLiteral("Jours avant l'ouverture de vos droits (le %1)").arg(Dates::versAffichage(d.ouverture))
            : QStringLiteral("Jours avant l'ouverture de vos droits"));
    m_libelleApresAujourdhui->setText(
        QStringLiteral("Jours à venir après aujourd'hui (%1)").arg(Dates::versAffichage(aujourdhui)));
    const QString formule = regle(d.profession);
    m_libelleNonCompenses->setText(
        formule.isEmpty() ? QStringLiteral("Jours non indemnisés pour ce travail")
                          : QStringLiteral("Jours non indemnisés pour ce travail (%1 : %2, arrondi à l'entier "
                                           "inférieur)")
                                .arg(d.profession, formule));
    m_joursDuMois->setText(QString::number(d.joursDuMois));
    m_avantOuverture->setText(moins(d.avantOuverture));
    m_apresAujourdhui->setText(moins(d.apresAujourdhui));
    m_heures->setText(QStringLiteral("%1 h").arg(enEntier(d.heures)));
    m_nonCompenses->setText(moins(d.nonCompenses));
    m_resultatTexte->setText(m_resultat < 0 ? QStringLiteral("− %1").arg(-m_resultat) : QString::number(m_resultat));

    QStringList notes;
    if (formule.isEmpty())
        notes << QStringLiteral("Votre profession (« %1 ») ne relève pas des annexes 8 et 10 : aucun jour n'est "
                                "déduit pour le travail du mois.")
                     .arg(d.profession.isEmpty() ? QStringLiteral("aucune") : d.profession);
    if (m_resultat < 0)
        notes << QStringLiteral("Le résultat est négatif : le travail du mois couvre plus de jours que le mois n'en "
                                "compte à indemniser. Aucun jour ne vous sera payé pour ce mois.");
    m_note->setText(notes.join(QLatin1Char('\n')));
    colorerNote();
}

void VueDeclaration::changeEvent(QEvent* evenement)
{
    QWidget::changeEvent(evenement);
    if (evenement->type() == QEvent::PaletteChange)
        colorerNote();
}

void VueDeclaration::colorerNote()
{
    // A negative result in red, readable on the background; otherwise the palette's text colour.
    const QString feuille =
        m_resultat < 0 ? QStringLiteral("color: %1;")
                             .arg(VueDroits::couleur(LigneCompteRendu::Rouge, palette().color(QPalette::Window)).name())
                       : QString();
    if (m_note->styleSheet() != feuille)
        m_note->setStyleSheet(feuille);
}

} // namespace corvane::app
