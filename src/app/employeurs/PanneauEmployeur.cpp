#include "app/employeurs/PanneauEmployeur.h"

#include "store/Document.h"

#include "app/Environnement.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/MessageSaisie.h"
#include "app/kit/Raccourcis.h"
#include "records/ContratsModeles.h"
#include "store/Dialogues.h"
#include "store/FormatFrancais.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

QColor couleurDepuisTexte(const QString& texte)
{
    const QStringList parts = texte.split(QLatin1Char(','));
    if (parts.size() != 3)
        return Qt::black;
    return QColor(parts[0].toInt(), parts[1].toInt(), parts[2].toInt());
}

// Degrees to the micro-degree; empty is 0, no position.
ChampMontant* coordonnee(QWidget* parent, const QString& nom, double limite)
{
    auto* champ = new ChampMontant(parent, Bornes{-limite, limite, 6, false});
    champ->setObjectName(nom);
    return champ;
}

} // namespace

PanneauEmployeur::PanneauEmployeur(Environnement& environnement, QWidget* parent)
    : QWidget(parent), m_environnement(environnement)
{
    auto* mise = new QVBoxLayout(this);
    auto* forme = new QFormLayout;
    forme->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    forme->setLabelAlignment(Qt::AlignRight);
    mise->addLayout(forme);

    forme->addRow(QStringLiteral("Enseigne"), m_raisonSociale = champ(QStringLiteral("champEnseigne")));
    forme->addRow(QStringLiteral("Adresse"), m_adresse = champ(QStringLiteral("champAdresse")));
    forme->addRow(QStringLiteral("Code postal"), m_codePostal = champ(QStringLiteral("champCodePostal")));
    forme->addRow(QStringLiteral("Commune"), m_commune = champ(QStringLiteral("champCommune")));
    forme->addRow(QStringLiteral("Interlocuteur"), m_interlocuteur = champ(QStringLiteral("champInterlocuteur")));
    forme->addRow(QStringLiteral("Téléphone"), m_telephone = champ(QStringLiteral("champTelephone")));
    forme->addRow(QStringLiteral("Fax"), m_fax = champ(QStringLiteral("champFax")));
    forme->addRow(QStringLiteral("Adresse électronique"), m_email = champ(QStringLiteral("champEmail")));

    auto* ligneModele = new QHBoxLayout;
    m_modele = new QLabel(this);
    m_modele->setObjectName(QStringLiteral("modeleAssocie"));
    auto* associer = new QPushButton(QStringLiteral("Associer un modèle de contrat…"), this);
    associer->setObjectName(QStringLiteral("boutonAssocierModele"));
    ligneModele->addWidget(m_modele, 1);
    ligneModele->addWidget(associer);
    forme->addRow(QStringLiteral("Modèle de contrat"), ligneModele);
    m_menuModeles = new QMenu(this);
    m_menuModeles->setObjectName(QStringLiteral("menuModeles"));
    connect(associer, &QPushButton::clicked, this, &PanneauEmployeur::proposerModeles);

    m_conventionne = new QCheckBox(QStringLiteral("Conventionné"), this);
    m_conventionne->setObjectName(QStringLiteral("champConventionne"));
    m_prospect = new QCheckBox(QStringLiteral("Prospect"), this);
    m_prospect->setObjectName(QStringLiteral("champProspect"));
    auto* coches = new QHBoxLayout;
    coches->addWidget(m_conventionne);
    coches->addWidget(m_prospect);
    coches->addStretch(1);
    forme->addRow(QString(), coches);

    forme->addRow(QStringLiteral("SIRET"), m_siret = champ(QStringLiteral("champSiret")));
    forme->addRow(QStringLiteral("Code APE"), m_codeApe = champ(QStringLiteral("champCodeApe")));
    forme->addRow(QStringLiteral("Licence de spectacle"), m_licence = champ(QStringLiteral("champLicence")));
    m_guso = new QCheckBox(QStringLiteral("Paie par le Guso"), this);
    m_guso->setObjectName(QStringLiteral("champGuso"));
    forme->addRow(QString(), m_guso);
    forme->addRow(QStringLiteral("Numéro Guso"), m_numeroGuso = champ(QStringLiteral("champNumeroGuso")));
    m_qualite = new QComboBox(this);
    m_qualite->setObjectName(QStringLiteral("champQualite"));
    forme->addRow(QStringLiteral("Qualité"), m_qualite);

    m_boutonCouleur = new QPushButton(this);
    m_boutonCouleur->setObjectName(QStringLiteral("boutonCouleur"));
    m_boutonCouleur->setText(QStringLiteral("Choisir…"));
    m_boutonCouleur->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    forme->addRow(QStringLiteral("Couleur"), m_boutonCouleur);
    connect(m_boutonCouleur, &QPushButton::clicked, this, &PanneauEmployeur::choisirCouleur);
    auto* position = new QHBoxLayout;
    position->addWidget(m_latitude = coordonnee(this, QStringLiteral("champLatitude"), 90.0));
    position->addWidget(m_longitude = coordonnee(this, QStringLiteral("champLongitude"), 180.0));
    forme->addRow(QStringLiteral("Latitude, longitude"), position);
    auto* message = new MessageSaisie(this);
    message->surveiller(m_latitude, QStringLiteral("Latitude"));
    message->surveiller(m_longitude, QStringLiteral("Longitude"));
    forme->addRow(message);

    auto* boutons = new QHBoxLayout;
    auto* enregistrer = new QPushButton(QStringLiteral("Enregistrer"), this);
    enregistrer->setObjectName(QStringLiteral("boutonEnregistrerEmployeur"));
    m_supprimer = new QPushButton(QStringLiteral("Supprimer"), this);
    m_supprimer->setObjectName(QStringLiteral("boutonSupprimerEmployeur"));
    boutons->addStretch(1);
    boutons->addWidget(m_supprimer);
    boutons->addWidget(enregistrer);
    mise->addLayout(boutons);
    mise->addStretch(1);
    connect(enregistrer, &QPushButton::clicked, this, &PanneauEmployeur::enregistrementDemande);
    connect(m_supprimer, &QPushButton::clicked, this, &PanneauEmployeur::suppressionDemandee);
    vider();
    attribuerRaccourcis(this);
}

QLineEdit* PanneauEmployeur::champ(const QString& nom)
{
    auto* edition = new QLineEdit(this);
    edition->setObjectName(nom);
    connect(edition, &QLineEdit::returnPressed, this, &PanneauEmployeur::enregistrementDemande);
    return edition;
}

void PanneauEmployeur::setDocument(Document* document)
{
    m_document = document;
    m_qualite->clear();
    if (document) {
        for (const auto& [id, libelle] : Employeurs(document->base()).qualites())
            m_qualite->addItem(libelle, id);
    }
    vider();
}

void PanneauEmployeur::afficher(const Employeur& e)
{
    m_employeur = e;
    m_raisonSociale->setText(e.raisonSociale);
    m_adresse->setText(e.adresse);
    m_codePostal->setText(e.codePostal);
    m_commune->setText(e.commune);
    m_email->setText(e.email);
    m_interlocuteur->setText(e.interlocuteur);
    m_telephone->setText(e.telephone);
    m_fax->setText(e.fax);
    m_siret->setText(e.siret);
    m_licence->setText(e.licenceSpectacle);
    m_numeroGuso->setText(e.numeroGuso);
    m_codeApe->setText(e.codeApe);
    m_conventionne->setChecked(e.conventionne != 0);
    m_guso->setChecked(e.guso != 0);
    m_prospect->setChecked(e.prospect != 0);
    m_qualite->setCurrentIndex(m_qualite->findData(e.qualiteId));
    m_latitude->setValue(e.latitude);
    m_longitude->setValue(e.longitude);
    m_couleur = e.couleur;
    montrerCouleur();
    m_modeleId = e.contratModeleId;
    afficherModele();
    m_supprimer->setEnabled(e.id != 0);
}

void PanneauEmployeur::vider()
{
    afficher(Employeur());
}

Employeur PanneauEmployeur::saisie() const
{
    Employeur e = m_employeur;
    e.raisonSociale = m_raisonSociale->text().trimmed();
    e.adresse = m_adresse->text();
    e.codePostal = m_codePostal->text().trimmed();
    e.commune = m_commune->text().trimmed();
    e.email = m_email->text().trimmed();
    e.interlocuteur = m_interlocuteur->text();
    e.telephone = m_telephone->text();
    e.fax = m_fax->text();
    e.siret = m_siret->text();
    e.licenceSpectacle = m_licence->text();
    e.numeroGuso = m_numeroGuso->text();
    e.codeApe = m_codeApe->text();
    e.conventionne = m_conventionne->isChecked() ? 1 : 0;
    e.guso = m_guso->isChecked() ? 1 : 0;
    e.prospect = m_prospect->isChecked() ? 1 : 0;
    if (m_qualite->currentIndex() >= 0)
        e.qualiteId = m_qualite->currentData().toInt();
    // A position that cannot be read is not a number: the save refuses it, never stores 0.
    e.latitude = m_latitude->nombre().value_or(qQNaN());
    e.longitude = m_longitude->nombre().value_or(qQNaN());
    e.couleur = m_couleur;
    e.contratModeleId = m_modeleId;
    return e;
}

void PanneauEmployeur::afficherModele()
{
    QString libelle;
    if (m_modeleId != 0 && m_document)
        libelle = ContratsModeles(m_document->base()).retrouveLibelleFromId(m_modeleId);
    m_modele->setText(libelle.isEmpty() ? QStringLiteral("Aucun") : libelle);
}

void PanneauEmployeur::proposerModeles()
{
    const Lignes modeles = m_document ? ContratsModeles(m_document->base()).listeLesModeles_v4() : Lignes();
    if (modeles.isEmpty()) {
        m_environnement.dialogues.information(QStringLiteral("Associer un modèle de contrat"),
                                              QStringLiteral("Il n'existe aucun modèle."), QStringLiteral("Fermer"));
        return;
    }
    m_menuModeles->clear();
    m_menuModeles->addAction(QStringLiteral("Aucun"), this, [this] { associerModele(0); });
    m_menuModeles->addSeparator();
    for (const Ligne& l : modeles) {
        const int id = l.value("Id").toInt();
        QAction* action =
            m_menuModeles->addAction(l.value("Nom du modèle").toString(), this, [this, id] { associerModele(id); });
        action->setCheckable(true);
        action->setChecked(id == m_modeleId);
    }
    m_menuModeles->popup(mapToGlobal(m_modele->geometry().bottomLeft()));
}

void PanneauEmployeur::associerModele(int modeleId)
{
    m_modeleId = modeleId;
    afficherModele();
}

void PanneauEmployeur::montrerCouleur()
{
    m_boutonCouleur->setStyleSheet(QStringLiteral("QPushButton { border-left: 14px solid %1; padding-left: 6px; }")
                                       .arg(couleurDepuisTexte(m_couleur).name()));
}

void PanneauEmployeur::choisirCouleur()
{
    // A short palette with French names: the platform's colour dialog is not translated.
    static const QList<QPair<QString, QColor>> palette{
        {"Noir", QColor(0, 0, 0)},        {"Rouge", QColor(204, 0, 0)},   {"Orange", QColor(245, 121, 0)},
        {"Jaune", QColor(237, 212, 0)},   {"Vert", QColor(78, 154, 6)},   {"Bleu", QColor(52, 101, 164)},
        {"Violet", QColor(117, 80, 123)}, {"Marron", QColor(143, 89, 2)}, {"Gris", QColor(136, 138, 133)},
    };
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("menuCouleurs"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto& [nom, couleur] : palette) {
        QPixmap pastille(14, 14);
        pastille.fill(couleur);
        menu->addAction(QIcon(pastille), nom, this, [this, couleur = couleur] {
            m_couleur = QStringLiteral("%1,%2,%3").arg(couleur.red()).arg(couleur.green()).arg(couleur.blue());
            montrerCouleur();
        });
    }
    menu->popup(m_boutonCouleur->mapToGlobal(QPoint(0, m_boutonCouleur->height())));
}

} // namespace corvane::app
