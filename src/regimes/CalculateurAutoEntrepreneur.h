#pragma once

namespace corvane {

// The three rates of social charges of a year, in percent of the turnover.
struct TauxDeCharges
{
    double ventes;      // sales of goods (BIC)
    double servicesBIC; // services (BIC)
    double servicesBNC; // services (BNC)
};

// The social charges a micro-entrepreneur owes on a year's turnover. The income-tax
// screen fills the inputs and rounds the result down to the euro. The rates are
// worked out from the inputs each time they are read.
class CalculateurAutoEntrepreneur
{
public:
    int annee() const { return m_annee; }
    void setAnnee(int annee) { m_annee = annee; }
    int idAE() const { return m_idAE; }
    void setIdAE(int id) { m_idAE = id; }
    // Professional category: 1 to 3 carry a training contribution.
    int idCategoriePro() const { return m_idCategoriePro; }
    void setIdCategoriePro(int id) { m_idCategoriePro = id; }
    // Activity (autoentrepreneuractivites): 1 to 5 carry a chamber fee.
    int idActivite() const { return m_idActivite; }
    void setIdActivite(int id) { m_idActivite = id; }
    // Income tax paid by the levy in full discharge.
    bool isPrelevementLiberatoire() const { return m_isPrelevementLiberatoire; }
    void setPrelevementLiberatoire(bool oui) { m_isPrelevementLiberatoire = oui; }
    bool isAlsace() const { return m_isAlsace; }
    void setAlsace(bool oui) { m_isAlsace = oui; }
    bool isMoselle() const { return m_isMoselle; }
    void setMoselle(bool oui) { m_isMoselle = oui; }

    double caVentesDeMarchandisesBIC() const { return m_caVentesDeMarchandisesBIC; }
    void setCaVentesDeMarchandisesBIC(double montant) { m_caVentesDeMarchandisesBIC = montant; }
    double caPrestationsDeServicesBIC() const { return m_caPrestationsDeServicesBIC; }
    void setCaPrestationsDeServicesBIC(double montant) { m_caPrestationsDeServicesBIC = montant; }
    // Turnover of the liberal professions (type 103) is never passed in here.
    double caPrestationsDeServicesBNC() const { return m_caPrestationsDeServicesBNC; }
    void setCaPrestationsDeServicesBNC(double montant) { m_caPrestationsDeServicesBNC = montant; }

    // The rates, in percent.
    double tauxChargesVentes() const { return tauxDeCharges(m_annee, m_isPrelevementLiberatoire).ventes; }
    double tauxChargesServicesBIC() const { return tauxDeCharges(m_annee, m_isPrelevementLiberatoire).servicesBIC; }
    double tauxChargesServicesBNC() const { return tauxDeCharges(m_annee, m_isPrelevementLiberatoire).servicesBNC; }
    double tauxCFE() const { return tauxCFE(m_idCategoriePro, m_isAlsace); }
    double tauxFraisDeChambre() const { return taxePourFraisDeChambre(m_idActivite, m_isAlsace, m_isMoselle); }

    // Each turnover at its own rate, plus the training contribution and the chamber fee
    // on their total. Not rounded.
    double calculeLesCharges() const;

    // The rates of a year; the levy in full discharge adds 1.0, 1.7 and 2.2 points.
    static TauxDeCharges tauxDeCharges(int annee, bool isPrelevementLiberatoire);
    // Training contribution by professional category; 0 for any other category.
    static double tauxCFE(int idCategoriePro, bool isAlsace);
    // Chamber fee by activity; Moselle's rate wins when both flags are set. 0 for any other activity.
    static double taxePourFraisDeChambre(int idActivite, bool isAlsace, bool isMoselle);

private:
    int m_annee = 0;
    int m_idAE = 0;
    int m_idCategoriePro = 0;
    int m_idActivite = 0;
    bool m_isPrelevementLiberatoire = false;
    bool m_isAlsace = false;
    bool m_isMoselle = false;
    double m_caVentesDeMarchandisesBIC = 0.0;
    double m_caPrestationsDeServicesBIC = 0.0;
    double m_caPrestationsDeServicesBNC = 0.0;
};

} // namespace corvane
