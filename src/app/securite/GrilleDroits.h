#pragma once

#include "store/BaseDeDonnees.h"

#include <QGroupBox>
#include <QList>
#include <memory>

class QLabel;

namespace corvane {
class Document;
class SecuriteSociale;
} // namespace corvane

namespace corvane::app {

class ChampDate;

// "Vérification des droits": the social-security benefits the user's recent work opens on a
// chosen day (remembered in the document as `securite_sociale_verification`), or why they
// cannot be worked out.
class GrilleDroits : public QGroupBox
{
    Q_OBJECT

public:
    explicit GrilleDroits(QWidget* parent = nullptr);
    ~GrilleDroits() override;

    // Nothing is read until actualiser().
    void setDocument(Document* document);
    // Reads the remembered day and works the rights out again.
    void actualiser();

    QDate jour() const;
    // The rows shown ("Libellé Gauche", "OuiNon Gauche", "Libellé Droit", "OuiNon Droit"); none
    // when the document holds no contract.
    const Table& droits() const { return m_droits; }

signals:
    // The day was changed and written to the document.
    void ecrit();

private:
    void jourChoisi();
    void afficher();

    std::unique_ptr<SecuriteSociale> m_modele;
    Table m_droits;
    ChampDate* m_jour = nullptr;
    QWidget* m_grille = nullptr;
    QLabel* m_sansContrat = nullptr;
    // Rows 0 to 3, columns 0 to 3: the cells of the grid.
    QList<QList<QLabel*>> m_cellules;
};

} // namespace corvane::app
