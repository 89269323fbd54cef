#include "app/PanneauPreferencesCartes.h"

#include "app/SitesInternet.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

using C = Reglages::Cle;

struct Champ
{
    C cle;
    QString libelle;
    QStringList reperes; // what the address must hold, filled in by the map pages
};

const QList<Champ>& champs()
{
    static const QList<Champ> liste{
        {C::CartesTuiles, QStringLiteral("Fond de carte"), {"{z}", "{x}", "{y}"}},
        {C::CartesTrafic, QStringLiteral("Couche de trafic (facultative)"), {"{z}", "{x}", "{y}"}},
        {C::CartesGeocodeur, QStringLiteral("Recherche d'adresses"), {}},
        {C::CartesItineraire, QStringLiteral("Itinéraires en voiture"), {"{depart}", "{arrivee}"}},
        {C::CartesMention, QStringLiteral("Mention des données"), {}},
    };
    return liste;
}

} // namespace

QString PanneauPreferencesCartes::refus(Reglages::Cle cle, const QString& texte)
{
    const QString adresse = texte.trimmed();
    if (cle == C::CartesMention || (cle == C::CartesTrafic && adresse.isEmpty()))
        return {};
    for (const Champ& champ : champs()) {
        if (champ.cle != cle)
            continue;
        QStringList manquants;
        QString essai = adresse;
        for (const QString& repere : champ.reperes) {
            if (!adresse.contains(repere))
                manquants << repere;
            essai.replace(repere, QStringLiteral("0"));
        }
        if (QString refusSite = refusAdresse(essai); !refusSite.isEmpty())
            return adresse.isEmpty() ? refusSite : refusSite.replace(essai, adresse);
        if (!manquants.isEmpty())
            return QStringLiteral("L'adresse doit contenir %1.").arg(manquants.join(QStringLiteral(", ")));
    }
    return {};
}

PanneauPreferencesCartes::PanneauPreferencesCartes(Reglages& reglages, QWidget* parent)
    : QWidget(parent), m_reglages(reglages)
{
    setObjectName(QStringLiteral("panneauCartes"));
    auto* disposition = new QVBoxLayout(this);
    auto* explication = new QLabel(
        QStringLiteral("La carte des employeurs et la fenêtre Trajets demandent à ces services le fond de carte, "
                       "la position des adresses et les itinéraires ; Corvane leur transmet les adresses à situer, "
                       "rien d'autre. Par défaut : OpenStreetMap, Nominatim et OSRM. {adresse} est remplacé par "
                       "l'adresse cherchée, {depart} et {arrivee} par une longitude et une latitude. Sans couche "
                       "de trafic, le bouton « Trafic » n'est pas proposé."),
        this);
    explication->setWordWrap(true);
    disposition->addWidget(explication);
    auto* forme = new QFormLayout;
    for (const Champ& c : champs()) {
        auto* champ = new QLineEdit(m_reglages.texte(c.cle), this);
        champ->setObjectName(Reglages::nom(c.cle));
        champ->setMinimumWidth(360);
        champ->setPlaceholderText(Reglages::defaut(c.cle).toString());
        auto* erreur = new QLabel(this);
        erreur->setObjectName(Reglages::nom(c.cle) + QStringLiteral("_refus"));
        erreur->setWordWrap(true);
        erreur->setStyleSheet(QStringLiteral("color: #c01c28;"));
        erreur->hide();
        forme->addRow(c.libelle + QStringLiteral(" :"), champ);
        forme->addRow(QString(), erreur);
        const C cle = c.cle;
        connect(champ, &QLineEdit::editingFinished, this, [this, champ, erreur, cle] {
            QString texte = champ->text().trimmed();
            if (texte.isEmpty())
                texte = Reglages::defaut(cle).toString();
            const QString pourquoi = refus(cle, texte);
            erreur->setText(pourquoi);
            erreur->setVisible(!pourquoi.isEmpty());
            if (!pourquoi.isEmpty() || texte == m_reglages.texte(cle))
                return;
            champ->setText(texte);
            m_reglages.ecrire(cle, texte);
            m_reglages.synchroniser();
            emit modifie();
        });
    }
    disposition->addLayout(forme);
    disposition->addStretch(1);
}

} // namespace corvane::app
