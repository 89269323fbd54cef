#include "records/NouvellePeriode.h"

#include "records/Profil.h"
#include "store/Annexes.h"
#include "store/Dates.h"
#include "store/Horloge.h"
#include "store/SaisieFrancaise.h"

namespace corvane {

NouvellePeriode::NouvellePeriode(const QString& chemin) : m_document(chemin)
{
    initialiser();
}

NouvellePeriode::NouvellePeriode(BaseDeDonnees& connexion) : m_document(connexion)
{
    initialiser();
}

void NouvellePeriode::initialiser()
{
    m_emploi = m_document.retrouveEmploiUtilisateur();
    m_ouvertureDroits = m_document.retrouveDateOuvertureDroits().date();
    changeDebut(Horloge::aujourdhui());
}

int NouvellePeriode::longueurPeriodeDeReference(const QString& emploi)
{
    const Annexe annexe = emploi == QStringLiteral("Artiste") ? Annexe(Artiste()) : Annexe(OuvrierTechnicien());
    return joursPeriodeDeReference(annexe, Horloge::aujourdhui());
}

QDate NouvellePeriode::finParDefaut(const QString& emploi, const QDate& debut)
{
    return debut.addDays(longueurPeriodeDeReference(emploi) - 1);
}

QString NouvellePeriode::libelleParDefaut(const QDate& debut, const QDate& fin)
{
    return QStringLiteral("Période du %1 au %2").arg(Dates::versAffichage(debut), Dates::versAffichage(fin));
}

void NouvellePeriode::changeDebut(const QDate& debut)
{
    const bool libelleParDefautGarde =
        m_periode.libelle.isEmpty() || m_periode.libelle == libelleParDefaut(m_periode.debut, m_periode.fin);
    m_periode.debut = debut;
    m_periode.fin = finParDefaut(m_emploi, debut);
    if (libelleParDefautGarde)
        m_periode.libelle = libelleParDefaut(m_periode.debut, m_periode.fin);
}

void NouvellePeriode::changeFin(const QDate& fin)
{
    const bool libelleParDefautGarde =
        m_periode.libelle.isEmpty() || m_periode.libelle == libelleParDefaut(m_periode.debut, m_periode.fin);
    m_periode.fin = fin;
    if (libelleParDefautGarde)
        m_periode.libelle = libelleParDefaut(m_periode.debut, m_periode.fin);
}

void NouvellePeriode::changeJours(int conges, int franchiseSalaires, int attente)
{
    m_periode.conges = conges;
    m_periode.franchiseSalaires = franchiseSalaires;
    m_periode.attente = attente;
}

bool NouvellePeriode::srjDemande() const
{
    return m_ouvertureDroits.isValid() && m_ouvertureDroits < QDate(2007, 4, 1);
}

QString NouvellePeriode::titre()
{
    return QStringLiteral("Gestion des périodes");
}

QString NouvellePeriode::messageExisteDeja()
{
    return QStringLiteral("Cette période existe déjà.");
}

QString NouvellePeriode::messageFinAvantDebut()
{
    return QStringLiteral("La fin de la période ne peut pas précéder son début.");
}

QString NouvellePeriode::refus()
{
    if (m_periode.debut.isValid() && m_periode.fin.isValid() && m_periode.fin < m_periode.debut)
        return messageFinAvantDebut();
    if (const QString r = Periodes::refusValeurs(m_periode); !r.isEmpty())
        return r;
    if (m_majAutomatique) {
        if (const QString r = SaisieFrancaise::refusNombre(m_srj, Limites::kMontant); !r.isEmpty())
            return QStringLiteral("Salaire de référence journalier : %1.").arg(r);
        if (const QString r = SaisieFrancaise::refusNombre(m_taux, Limites::kMontant); !r.isEmpty())
            return QStringLiteral("Allocation journalière : %1.").arg(r);
    }
    // Same two dates as an existing period, whatever its label.
    if (Periodes(m_document.db()).isPeriodeExiste(m_periode.debut, m_periode.fin))
        return messageExisteDeja();
    return {};
}

int NouvellePeriode::enregistre(QString* refusDonne)
{
    const QString message = refus();
    if (refusDonne)
        *refusDonne = message;
    if (!message.isEmpty())
        return 0;
    const int id = Periodes(m_document.db()).enregistrePeriode(m_periode);
    if (id != 0 && m_majAutomatique)
        Profil(m_document.db()).majNouvellePeriodeDu(m_periode.debut, m_srj, m_taux);
    return id;
}

} // namespace corvane
