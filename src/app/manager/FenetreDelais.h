#pragma once

#include <QDialog>
#include <memory>

class QComboBox;
class QPushButton;
class QTableWidget;

namespace corvane {
class Document;
class TarifsPropositions;
} // namespace corvane

namespace corvane::app {

struct Environnement;
class ChampNombre;

// "Gestion des délais": the delays a proposition is valid for ("7 jours", "1 mois"); a new one
// by number and unit; one deleted while no proposition uses it.
class FenetreDelais : public QDialog
{
    Q_OBJECT

public:
    FenetreDelais(Environnement& environnement, Document& document, QWidget* parent = nullptr);
    ~FenetreDelais() override;

    void recharger(int idASelectionner = 0);
    int idSelectionne() const;
    int ajouter();
    bool supprimer();

signals:
    void delaisModifies(int idAjoute);

private:
    void alerter(const QString& message);

    Environnement& m_environnement;
    std::unique_ptr<TarifsPropositions> m_tarifs;
    QTableWidget* m_liste = nullptr;
    ChampNombre* m_nombre = nullptr;
    QComboBox* m_unite = nullptr;
    QPushButton* m_supprimer = nullptr;
};

} // namespace corvane::app
