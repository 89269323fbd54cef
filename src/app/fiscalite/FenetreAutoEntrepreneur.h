#pragma once

#include <QDialog>
#include <functional>
#include <memory>

class QFormLayout;

namespace corvane {
class Document;
class Profil;
} // namespace corvane

namespace corvane::app {

struct Environnement;

// The self-employment settings of the profile: the switch, the professional category, the
// activity, the declarations' periodicity, the levy in full discharge, the SIRET number and the
// declaration site's password. Each is written as soon as it is chosen (the texts when their
// field is left); the charges of the "Fiscalité" screen follow at once.
class FenetreAutoEntrepreneur : public QDialog
{
    Q_OBJECT

public:
    FenetreAutoEntrepreneur(Environnement& environnement, Document* document, QWidget* parent = nullptr);
    ~FenetreAutoEntrepreneur() override;

    // The names of the professional categories 1 to 3 and of the periodicities (months).
    static const QList<QPair<QString, int>>& categories();
    static const QList<QPair<QString, int>>& periodicites();

private:
    void recharger();
    // A list of choices saved by `sauvegarde` when one is picked, shown from `valeur`.
    void ajouterChoix(QFormLayout* forme, const QString& libelle, const QString& nom,
                      const QList<QPair<QString, int>>& choix, std::function<bool(int)> sauvegarde,
                      std::function<int()> valeur);
    void ajouterTexte(QFormLayout* forme, const QString& libelle, const QString& nom, bool secret,
                      std::function<bool(const QString&)> sauvegarde, std::function<QString()> valeur);
    void ajouterCoche(QFormLayout* forme, const QString& texte, const QString& nom, std::function<bool(int)> sauvegarde,
                      std::function<int()> valeur);

    Environnement& m_environnement;
    std::unique_ptr<Profil> m_profil;
    QList<std::function<void()>> m_chargeurs;
};

} // namespace corvane::app
