#pragma once

#include "store/Reglages.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QSpinBox;

namespace corvane::app {

// "Alertes": the alerts switch, the monthly declaration window and the delay after
// which an unpaid contract is reported.
class PanneauPreferencesAlertes : public QWidget
{
    Q_OBJECT

public:
    explicit PanneauPreferencesAlertes(Reglages& reglages, QWidget* parent = nullptr);

    // The delays offered for "ContractsAlertRate", in stored order (0 to 3).
    static const QStringList& delaisContrats();

signals:
    void modifie();

private:
    void ecrire(Reglages::Cle cle, const QVariant& valeur);

    Reglages& m_reglages;
    QCheckBox* m_activer = nullptr;
    QSpinBox* m_debut = nullptr;
    QSpinBox* m_fin = nullptr;
    QComboBox* m_delai = nullptr;
};

} // namespace corvane::app
