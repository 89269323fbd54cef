#pragma once

#include "app/PageSection.h"

#include <QDate>

class QLabel;
class QPushButton;
class QStackedWidget;
class QTableWidget;

namespace corvane::app {

// The known documents: open one, take it off the list, show it in the file manager;
// create or open another; make a backup copy, with the date of the last one.
class SectionFichiers : public PageSection
{
    Q_OBJECT

public:
    explicit SectionFichiers(QWidget* parent = nullptr);

    void afficherFichiersConnus(const QStringList& chemins);
    void setDerniereSauvegarde(const QDate& date);
    QString fichierSelectionne() const;

signals:
    void ouvertureDemandee(const QString& chemin);
    void retraitDemande(const QString& chemin);
    void nouveauDocumentDemande();
    void autreDocumentDemande();
    void sauvegardeDemandee();

protected:
    void recharger() override;

private:
    void majBoutons();
    QWidget* construireAccueil();

    QTableWidget* m_liste = nullptr;
    QPushButton* m_ouvrir = nullptr;
    QPushButton* m_retirer = nullptr;
    QPushButton* m_montrer = nullptr;
    QPushButton* m_sauvegarder = nullptr;
    QLabel* m_derniereSauvegarde = nullptr;
    QStackedWidget* m_pages = nullptr;
    QWidget* m_cadreSauvegarde = nullptr;
};

} // namespace corvane::app
