#include "records/LecteurContrats.h"

#include "records/Contrats.h"
#include "store/Dates.h"

namespace corvane {

namespace {

enum class Source
{
    Entier,
    EntierNulVautUn, // a missing "AEM - FP" flag counts as set
    ReelSimple,
    Reel,
    Texte,
    Date, // shown as "dd/MM/yyyy", "" when it does not read as a date
    Emploi,
};

struct Colonne
{
    const char* cle;
    Source source;
    int index; // in the statement's columns
};

// The display keys in the Table's order and the statement column each one reads. The
// model's listing stops after "Conges"; the screen's also shows the employer's Guso flag,
// the place and the linked expenses.
constexpr Colonne colonnes[] = {
    {"Id Contrat", Source::Entier, 9},
    {"Date Debut", Source::Date, 1},
    {"Date Fin", Source::Date, 2},
    {"Date Debut SQLite", Source::Texte, 1},
    {"Date Fin SQLite", Source::Texte, 2},
    {"Emploi", Source::Emploi, 3},
    {"Jours", Source::Entier, 5},
    {"Id Employeur", Source::Entier, 0},
    {"Heures", Source::Entier, 4},
    {"Salaire Brut", Source::ReelSimple, 6},
    {"Salaire Net", Source::ReelSimple, 7},
    {"Employeur", Source::Texte, 8},
    {"Liste Dates", Source::Texte, 10},
    {"Abattement", Source::Entier, 11},
    {"Effectue", Source::Entier, 12},
    {"Paye", Source::Entier, 13},
    {"Note", Source::Texte, 14},
    {"Type", Source::Entier, 15},
    {"Fonction", Source::Texte, 16},
    {"Conges", Source::Entier, 17},
    {"Guso", Source::Entier, 18},
    {"Annee Encaissement", Source::Entier, 19},
    {"Lieu", Source::Texte, 20},
    {"Id Frais Lie", Source::Texte, 21},
    {"AEM - FP", Source::EntierNulVautUn, 22},
    {"PAS", Source::Reel, 23},
};
constexpr int colonnesModele = 20;

QStringList premieresCles(int nombre)
{
    QStringList liste;
    for (int i = 0; i < nombre; ++i)
        liste << QString::fromLatin1(colonnes[i].cle);
    return liste;
}

Cellule entier(qint64 valeur)
{
    return {Cellule::Genre::Entier, valeur, 0.0, {}};
}

} // namespace

LecteurContrats::LecteurContrats(Contrats& contrats, const QString& sql, bool colonnesEcran,
                                 const QMap<int, QString>& emplois, const QString& tri)
    : m_contrats(contrats), m_requete(contrats.db(), sql), m_colonnesEcran(colonnesEcran), m_tri(tri)
{
    for (auto it = emplois.begin(); it != emplois.end(); ++it) {
        m_emplois.insert(it.key(), it.value());
        m_emploisUtf8.insert(it.key(), it.value().toUtf8());
    }
}

const QStringList& LecteurContrats::clesListe(bool colonnesEcran)
{
    static const QStringList modele = premieresCles(colonnesModele);
    static const QStringList ecran = premieresCles(int(std::size(colonnes)));
    return colonnesEcran ? ecran : modele;
}

bool LecteurContrats::suivante()
{
    if (m_fini)
        return false;
    if (m_requete.suivante())
        return true;
    m_fini = true;
    m_contrats.calculeLesTotaux(m_tri);
    return false;
}

QVariant LecteurContrats::valeur(int colonne) const
{
    const Colonne& c = colonnes[colonne];
    switch (c.source) {
    case Source::Entier:
        return int(m_requete.entier(c.index));
    case Source::EntierNulVautUn:
        return m_requete.estNul(c.index) ? 1 : int(m_requete.entier(c.index));
    case Source::ReelSimple:
        return float(m_requete.reel(c.index));
    case Source::Reel:
        return m_requete.reel(c.index);
    case Source::Texte:
        return m_requete.texte(c.index);
    case Source::Date:
        if (dateRapide(m_requete.octets(c.index)))
            return QString::fromLatin1(m_date, sizeof m_date);
        return Dates::versAffichage(Dates::depuisSQLite(m_requete.texte(c.index)));
    case Source::Emploi:
        return m_emplois.value(int(m_requete.entier(c.index)));
    }
    return {};
}

Cellule LecteurContrats::cellule(int colonne) const
{
    const Colonne& c = colonnes[colonne];
    switch (c.source) {
    case Source::Entier:
        return entier(int(m_requete.entier(c.index)));
    case Source::EntierNulVautUn:
        return entier(m_requete.estNul(c.index) ? 1 : int(m_requete.entier(c.index)));
    case Source::ReelSimple:
        return {Cellule::Genre::ReelSimple, 0, float(m_requete.reel(c.index)), {}};
    case Source::Reel:
        return {Cellule::Genre::Reel, 0, m_requete.reel(c.index), {}};
    case Source::Texte: {
        const QByteArrayView octets = m_requete.octets(c.index);
        if (octets.isValidUtf8())
            return texte(octets);
        // Each bad sequence becomes a replacement character, as in the Table's text.
        m_tampon = m_requete.texte(c.index).toUtf8();
        return texte(m_tampon);
    }
    case Source::Date:
        if (dateRapide(m_requete.octets(c.index)))
            return texte(QByteArrayView(m_date, sizeof m_date));
        m_tampon = Dates::versAffichage(Dates::depuisSQLite(m_requete.texte(c.index))).toUtf8();
        return texte(m_tampon);
    case Source::Emploi: {
        const auto it = m_emploisUtf8.constFind(int(m_requete.entier(c.index)));
        return texte(it == m_emploisUtf8.cend() ? QByteArrayView() : QByteArrayView(*it));
    }
    }
    return {};
}

Cellule LecteurContrats::texte(QByteArrayView octets) const
{
    return {Cellule::Genre::Texte, 0, 0.0, octets};
}

bool LecteurContrats::dateRapide(QByteArrayView t) const
{
    if (t.size() < 10)
        return false;
    for (const int i : {0, 1, 2, 3, 5, 6, 8, 9})
        if (t[i] < '0' || t[i] > '9')
            return false;
    // The separators are never checked; one outside ASCII would move the digits in UTF-16.
    if (static_cast<unsigned char>(t[4]) >= 0x80 || static_cast<unsigned char>(t[7]) >= 0x80)
        return false;
    const auto nombre = [&t](int debut, int longueur) {
        int n = 0;
        for (int i = debut; i < debut + longueur; ++i)
            n = n * 10 + (t[i] - '0');
        return n;
    };
    const int annee = nombre(0, 4);
    if (annee < 1000 || !QDate::isValid(annee, nombre(5, 2), nombre(8, 2)))
        return false;
    const char affichage[10] = {t[8], t[9], '/', t[5], t[6], '/', t[0], t[1], t[2], t[3]};
    std::copy(std::begin(affichage), std::end(affichage), m_date);
    return true;
}

} // namespace corvane
