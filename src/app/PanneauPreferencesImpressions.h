#pragma once

#include "store/Reglages.h"

#include <QList>
#include <QString>
#include <QWidget>

namespace corvane::app {

// "Impressions": what the printed reports hold. One check box per part of the dashboard's
// report, the profile summary, the employers report, the contracts report, the rights report
// and the social-security report; each is
// written as soon as it changes.
class PanneauPreferencesImpressions : public QWidget
{
    Q_OBJECT

public:
    explicit PanneauPreferencesImpressions(Reglages& reglages, QWidget* parent = nullptr);

    struct Interrupteur
    {
        Reglages::Cle cle;
        QString libelle;
    };
    struct Groupe
    {
        QString titre;
        QList<Interrupteur> interrupteurs;
    };
    // The switches, grouped by report, in the order shown.
    static const QList<Groupe>& groupes();

signals:
    void modifie();

private:
    Reglages& m_reglages;
};

} // namespace corvane::app
