#pragma once

#include "store/Reglages.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QSpinBox;

namespace corvane::app {

// "Sauvegardes": the parts of a backup's proposed name, with a preview, and the
// regular backup offer.
class PanneauPreferencesSauvegardes : public QWidget
{
    Q_OBJECT

public:
    explicit PanneauPreferencesSauvegardes(Reglages& reglages, QWidget* parent = nullptr);

    // The open document ("" when none), whose surname goes into the name.
    void setFile(const QString& chemin);
    // The name a backup made now would be offered, as the preview shows it.
    QString apercu() const;

signals:
    void modifie();

private:
    void ecrire(Reglages::Cle cle, const QVariant& valeur);
    void majApercu();

    Reglages& m_reglages;
    QString m_chemin;
    QCheckBox* m_prefixe = nullptr;
    QCheckBox* m_nom = nullptr;
    QCheckBox* m_date = nullptr;
    QComboBox* m_formatDate = nullptr;
    QLabel* m_apercu = nullptr;
    QCheckBox* m_auto = nullptr;
    QSpinBox* m_jours = nullptr;
};

} // namespace corvane::app
