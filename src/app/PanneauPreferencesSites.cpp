#include "app/PanneauPreferencesSites.h"

#include "app/SitesInternet.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace corvane::app {

PanneauPreferencesSites::PanneauPreferencesSites(Reglages& reglages, QWidget* parent)
    : QWidget(parent), m_reglages(reglages)
{
    setObjectName(QStringLiteral("panneauSites"));
    auto* disposition = new QVBoxLayout(this);
    auto* explication = new QLabel(
        QStringLiteral("Les boutons des écrans Congés et Fiscalité ouvrent ces sites dans votre navigateur. Corvane "
                       "ne leur transmet ni identifiant ni mot de passe."),
        this);
    explication->setWordWrap(true);
    disposition->addWidget(explication);
    auto* forme = new QFormLayout;
    for (const SiteInternet& site : sitesInternet()) {
        auto* champ = new QLineEdit(m_reglages.texte(site.cle), this);
        champ->setObjectName(Reglages::nom(site.cle));
        champ->setMinimumWidth(320);
        champ->setPlaceholderText(Reglages::defaut(site.cle).toString());
        auto* erreur = new QLabel(this);
        erreur->setWordWrap(true);
        erreur->setStyleSheet(QStringLiteral("color: #c01c28;"));
        erreur->hide();
        forme->addRow(site.libelle + QStringLiteral(" :"), champ);
        forme->addRow(QString(), erreur);
        const Reglages::Cle cle = site.cle;
        connect(champ, &QLineEdit::editingFinished, this, [this, champ, erreur, cle] {
            QString adresse = champ->text().trimmed();
            if (adresse.isEmpty())
                adresse = Reglages::defaut(cle).toString();
            const QString refus = refusAdresse(adresse);
            erreur->setText(refus);
            erreur->setVisible(!refus.isEmpty());
            if (!refus.isEmpty() || adresse == m_reglages.texte(cle))
                return;
            champ->setText(adresse);
            m_reglages.ecrire(cle, adresse);
            m_reglages.synchroniser();
            emit modifie();
        });
    }
    disposition->addLayout(forme);
    disposition->addStretch(1);
}

} // namespace corvane::app
