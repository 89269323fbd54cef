#include "CatalogueCarriere.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace corvane::bench {

void Tirage::ajouter(double poids)
{
    m_total += std::max(0.0, poids);
    m_cumuls << m_total;
}

int Tirage::tirer(Hasard& hasard) const
{
    const double cible = hasard.reel(0.0, m_total);
    const auto it = std::upper_bound(m_cumuls.cbegin(), m_cumuls.cend(), cible);
    return int(std::min<qsizetype>(it - m_cumuls.cbegin(), m_cumuls.size() - 1));
}

namespace Catalogue {

namespace {

struct DonneeVille
{
    const char* nom;
    const char* codePostal; // a prefix when the town has districts
    int arrondissements;
    double latitude, longitude;
    const char* indicatif;
    int poids;
};

// clang-format off
const DonneeVille kVilles[] = {
    {"Paris", "75", 20, 48.8566, 2.3522, "01", 30},
    {"Montreuil", "93100", 0, 48.8638, 2.4485, "01", 3},
    {"Saint-Denis", "93200", 0, 48.9362, 2.3574, "01", 2},
    {"Ivry-sur-Seine", "94200", 0, 48.8131, 2.3848, "01", 2},
    {"Boulogne-Billancourt", "92100", 0, 48.8397, 2.2399, "01", 2},
    {"Vincennes", "94300", 0, 48.8474, 2.4390, "01", 1},
    {"Versailles", "78000", 0, 48.8049, 2.1204, "01", 1},
    {"Aubervilliers", "93300", 0, 48.9146, 2.3821, "01", 1},
    {"Lyon", "69", 9, 45.7640, 4.8357, "04", 6},
    {"Villeurbanne", "69100", 0, 45.7719, 4.8902, "04", 1},
    {"Marseille", "13", 16, 43.2965, 5.3698, "04", 4},
    {"Aix-en-Provence", "13100", 0, 43.5297, 5.4474, "04", 2},
    {"Arles", "13200", 0, 43.6768, 4.6303, "04", 1},
    {"Avignon", "84000", 0, 43.9493, 4.8055, "04", 3},
    {"Nîmes", "30000", 0, 43.8367, 4.3601, "04", 1},
    {"Montpellier", "34000", 0, 43.6108, 3.8767, "04", 2},
    {"Sète", "34200", 0, 43.4028, 3.6928, "04", 1},
    {"Nice", "06000", 0, 43.7102, 7.2620, "04", 1},
    {"Toulon", "83000", 0, 43.1242, 5.9280, "04", 1},
    {"Grenoble", "38000", 0, 45.1885, 5.7245, "04", 2},
    {"Annecy", "74000", 0, 45.8992, 6.1294, "04", 1},
    {"Chambéry", "73000", 0, 45.5646, 5.9178, "04", 1},
    {"Saint-Étienne", "42000", 0, 45.4397, 4.3872, "04", 1},
    {"Clermont-Ferrand", "63000", 0, 45.7772, 3.0870, "04", 1},
    {"Aurillac", "15000", 0, 44.9264, 2.4397, "04", 1},
    {"Valence", "26000", 0, 44.9334, 4.8924, "04", 1},
    {"Perpignan", "66000", 0, 42.6887, 2.8948, "04", 1},
    {"Chalon-sur-Saône", "71100", 0, 46.7806, 4.8539, "03", 1},
    {"Dijon", "21000", 0, 47.3220, 5.0415, "03", 1},
    {"Besançon", "25000", 0, 47.2378, 6.0241, "03", 1},
    {"Strasbourg", "67000", 0, 48.5734, 7.7521, "03", 2},
    {"Mulhouse", "68100", 0, 47.7508, 7.3359, "03", 1},
    {"Metz", "57000", 0, 49.1193, 6.1757, "03", 1},
    {"Nancy", "54000", 0, 48.6921, 6.1844, "03", 1},
    {"Reims", "51100", 0, 49.2583, 4.0317, "03", 1},
    {"Lille", "59000", 0, 50.6292, 3.0573, "03", 3},
    {"Roubaix", "59100", 0, 50.6942, 3.1746, "03", 1},
    {"Amiens", "80000", 0, 49.8941, 2.2958, "03", 1},
    {"Rouen", "76000", 0, 49.4432, 1.0999, "02", 1},
    {"Le Havre", "76600", 0, 49.4944, 0.1079, "02", 1},
    {"Caen", "14000", 0, 49.1829, -0.3707, "02", 1},
    {"Rennes", "35000", 0, 48.1173, -1.6778, "02", 2},
    {"Brest", "29200", 0, 48.3904, -4.4861, "02", 1},
    {"Quimper", "29000", 0, 47.9960, -4.1024, "02", 1},
    {"Lorient", "56100", 0, 47.7483, -3.3700, "02", 1},
    {"Vannes", "56000", 0, 47.6582, -2.7608, "02", 1},
    {"Saint-Malo", "35400", 0, 48.6493, -2.0257, "02", 1},
    {"Nantes", "44000", 0, 47.2184, -1.5536, "02", 3},
    {"Saint-Nazaire", "44600", 0, 47.2735, -2.2138, "02", 1},
    {"Angers", "49000", 0, 47.4784, -0.5632, "02", 1},
    {"Le Mans", "72000", 0, 48.0061, 0.1996, "02", 1},
    {"Tours", "37000", 0, 47.3941, 0.6848, "02", 1},
    {"Orléans", "45000", 0, 47.9030, 1.9093, "02", 1},
    {"Poitiers", "86000", 0, 46.5802, 0.3404, "05", 1},
    {"La Rochelle", "17000", 0, 46.1603, -1.1511, "05", 1},
    {"Limoges", "87000", 0, 45.8336, 1.2611, "05", 1},
    {"Bordeaux", "33000", 0, 44.8378, -0.5792, "05", 3},
    {"Bayonne", "64100", 0, 43.4929, -1.4748, "05", 1},
    {"Pau", "64000", 0, 43.2951, -0.3708, "05", 1},
    {"Toulouse", "31000", 0, 43.6047, 1.4442, "05", 3},
    {"Albi", "81000", 0, 43.9289, 2.1464, "05", 1},
    {"Marciac", "32230", 0, 43.5250, 0.1600, "05", 1},
};

// Names of places and troupes, with their article: "de" is joined to them by `deNom`.
const char* const kNoms[] = {
    "l'Étincelle", "la Lune rousse", "l'Arbre à plumes", "la Mouette", "l'Horizon", "la Passerelle",
    "l'Escalier", "la Fabrique", "l'Éventail", "la Roulotte", "l'Ombre bleue", "la Coursive",
    "l'Embarcadère", "la Forge", "l'Atelier", "la Grange", "l'Odyssée", "la Girandole", "l'Estran",
    "la Boussole", "l'Albatros", "la Virgule", "l'Échappée", "la Chrysalide", "l'Orangerie", "la Caravelle",
    "l'Alambic", "la Tempête", "le Grand Large", "le Cerf-volant", "le Fil d'Ariane", "le Chat perché",
    "le Rideau rouge", "le Colibri", "le Moulin", "le Vent du nord", "le Lampadaire", "le Carrousel",
    "le Sémaphore", "les Tréteaux", "les Saltimbanques", "les Grands Chemins", "les Trois Coups",
    "les Nuits blanches", "les Oiseaux de passage", "l'Hirondelle", "la Main verte", "l'Aube", "le Préau",
    "la Belle Équipe", "l'Envolée", "le Bateau ivre", "la Clairière", "les Lucioles", "l'Îlot",
};

const char* const kPrenoms[] = {
    "Marie", "Nathalie", "Isabelle", "Sophie", "Julien", "Thomas", "Nicolas", "Camille", "Léa", "Hélène",
    "Céline", "François", "Jérôme", "Anne", "Élodie", "Mathieu", "Aurélie", "Benoît", "Chloé", "Grégoire",
    "Agnès", "Laurent", "Émilie", "Pauline", "Yann", "Gaëlle", "Raphaël", "Margaux", "Sébastien", "Valérie",
};

const char* const kPatronymes[] = {
    "Bernard", "Dubois", "Thomas", "Robert", "Richard", "Petit", "Durand", "Leroy", "Moreau", "Simon",
    "Laurent", "Lefèvre", "Michel", "Garcia", "David", "Bertrand", "Roux", "Vincent", "Fournier", "Morel",
    "Girard", "André", "Mercier", "Dupont", "Lambert", "Bonnet", "Le Gall", "Guérin", "Boyer", "N'Diaye",
    "D'Angelo", "Rousseau", "Blanc", "Chevalier", "Gauthier", "Perrin", "Lemoine", "Fontaine", "Barbier",
};

const char* const kVoies[] = {
    "rue Victor Hugo", "place de la République", "avenue Jean Jaurès", "rue de la Gare", "boulevard Gambetta",
    "rue Pasteur", "quai des Arts", "rue du Théâtre", "allée des Tilleuls", "rue de l'Église",
    "impasse des Lilas", "cours Lafayette", "rue Émile Zola", "place du Marché", "chemin des Vignes",
    "rue d'Alsace", "avenue de la Libération", "rue des Écoles", "boulevard Voltaire", "rue Jean Moulin",
};

const char* const kTitres[] = {
    "Le Jeu de l'amour et du hasard", "La Cerisaie", "Les Fausses Confidences", "On ne badine pas avec l'amour",
    "Le Malade imaginaire", "L'Illusion comique", "Les Caprices de Marianne", "Cyrano de Bergerac", "La Mouette",
    "Le Dindon", "Ruy Blas", "Phèdre", "Le Songe d'une nuit d'été", "L'Avare", "Les Heures claires",
    "Sous le tilleul", "Nos années d'orage", "La Traversée", "Le Bal des ombres", "Carnet de bord",
};

const char* const kOeuvres[] = {
    "Requiem de Fauré", "Carmina Burana", "La Flûte enchantée", "Le Messie", "Stabat Mater de Pergolèse",
    "Les Noces de Figaro", "Didon et Énée", "Petite messe solennelle", "Les Mamelles de Tirésias",
};

// Name patterns per kind: {DN} "de" + a name, {N} a name, {DV} "de" + the town, {P} a surname.
const QStringList& modeles(Genre genre)
{
    static const QList<QStringList> tous{
        {"Théâtre {DN}", "Théâtre municipal {DV}", "Théâtre {DV}", "Scène nationale {DV}", "Petit Théâtre {DN}",
         "Théâtre de poche {DN}"},
        {"Compagnie {DN}", "Cie {N}", "Collectif {N}", "Troupe {DN}", "Compagnie {P}"},
        {"Festival {DN}", "Festival des arts de la rue {DV}", "Festival d'été {DV}", "Rencontres théâtrales {DV}",
         "Nuits musicales {DV}", "Festival de jazz {DV}", "Festival lyrique {DV}"},
        {"{P} Productions", "Les Films {DN}", "Studio {N}", "{N} Production", "Studio de doublage {DN}"},
        {"Orchestre {DV}", "Orchestre de chambre {DV}", "Ensemble vocal {DN}", "Chœur {DV}", "Opéra {DV}",
         "Ensemble baroque {DN}"},
        {"Café-théâtre {DN}", "Auditorium {DV}", "Espace culturel {DN}", "Cabaret {DN}", "Salle {N}"},
        {"Comité des fêtes {DV}", "Association {N}", "Mairie {DV}", "Amicale laïque {DV}",
         "Office municipal de la culture {DV}"},
        {"Conservatoire {DV}", "École de musique {DV}", "École de théâtre {DN}", "MJC {DV}",
         "Collège Jean Moulin {DV}", "Lycée Victor Hugo {DV}"},
        {"Centre de formation {DN}", "Atelier de l'acteur {DV}", "Studio de la voix {DV}",
         "Institut des arts de la scène {DV}"},
        {"Musée des Beaux-Arts {DV}", "Médiathèque {DN}", "Office de tourisme {DV}"},
    };
    return tous.at(int(genre));
}
// clang-format on

template <typename T, std::size_t N>
QString auHasard(const T (&tableau)[N], Hasard& hasard)
{
    return QString::fromUtf8(tableau[hasard.entre(0, int(N) - 1)]);
}

QString majuscule(const QString& texte)
{
    return texte.isEmpty() ? texte : texte.left(1).toUpper() + texte.mid(1);
}

QString deNom(const QString& nom)
{
    if (nom.startsWith(QStringLiteral("le ")))
        return QStringLiteral("du ") + nom.mid(3);
    if (nom.startsWith(QStringLiteral("les ")))
        return QStringLiteral("des ") + nom.mid(4);
    return QStringLiteral("de ") + nom;
}

QString chiffres(int nombre, Hasard& hasard)
{
    QString texte;
    for (int i = 0; i < nombre; ++i)
        texte += QChar(u'0' + hasard.entre(0, 9));
    return texte;
}

// The digit that makes the whole number pass the Luhn check.
QChar cleLuhn(const QString& debut)
{
    int somme = 0;
    for (int i = 0; i < debut.size(); ++i) {
        int chiffre = debut.at(debut.size() - 1 - i).digitValue();
        if (i % 2 == 0) {
            chiffre *= 2;
            if (chiffre > 9)
                chiffre -= 9;
        }
        somme += chiffre;
    }
    return QChar(u'0' + (10 - somme % 10) % 10);
}

} // namespace

const QList<Ville>& villes()
{
    static const QList<Ville> liste = [] {
        QList<Ville> v;
        for (const DonneeVille& d : kVilles)
            v.append({QString::fromUtf8(d.nom), QString::fromUtf8(d.codePostal), d.latitude, d.longitude,
                      QString::fromUtf8(d.indicatif), QByteArray(d.indicatif) == "01"});
        return v;
    }();
    return liste;
}

const Ville& paris()
{
    return villes().first();
}

Ville villeAuHasard(Hasard& hasard)
{
    static const Tirage tirage = [] {
        Tirage t;
        for (const DonneeVille& d : kVilles)
            t.ajouter(d.poids);
        return t;
    }();
    const int i = tirage.tirer(hasard);
    Ville ville = villes().at(i);
    if (kVilles[i].arrondissements > 0)
        ville.codePostal += QStringLiteral("%1").arg(hasard.entre(1, kVilles[i].arrondissements), 3, 10, QChar(u'0'));
    return ville;
}

QString deVille(const QString& ville)
{
    if (ville.startsWith(QStringLiteral("Le ")))
        return QStringLiteral("du ") + ville.mid(3);
    static const QString voyelles = QStringLiteral("AEÉIOUY");
    if (!ville.isEmpty() && voyelles.contains(ville.at(0)))
        return QStringLiteral("d'") + ville;
    return QStringLiteral("de ") + ville;
}

QString raisonSociale(Genre genre, const Ville& ville, Hasard& hasard)
{
    QString nom = hasard.choisir(modeles(genre));
    const QString lieu = auHasard(kNoms, hasard);
    nom.replace(QStringLiteral("{DN}"), deNom(lieu));
    nom.replace(QStringLiteral("{N}"), majuscule(lieu));
    nom.replace(QStringLiteral("{DV}"), deVille(ville.nom));
    nom.replace(QStringLiteral("{P}"), auHasard(kPatronymes, hasard));
    return nom;
}

QString adresse(Hasard& hasard)
{
    return QStringLiteral("%1 %2").arg(hasard.entre(1, 120)).arg(auHasard(kVoies, hasard));
}

QString personne(Hasard& hasard)
{
    return auHasard(kPrenoms, hasard) + QLatin1Char(' ') + auHasard(kPatronymes, hasard);
}

QString telephone(const Ville& ville, Hasard& hasard)
{
    return ville.indicatif + chiffres(8, hasard);
}

QString email(const QString& raisonSociale, Hasard& hasard)
{
    // Accents dropped, articles left out: "Théâtre de l'Étincelle" gives theatre-etincelle.fr.
    QString ascii;
    for (const QChar c : raisonSociale.normalized(QString::NormalizationForm_D))
        if (c.unicode() < 128)
            ascii += c.toLower();
    static const QStringList articles{"de", "du", "des", "la", "le", "les", "l", "d", "cie"};
    QStringList mots;
    for (const QString& mot : ascii.split(QRegularExpression(QStringLiteral("[^a-z0-9]+")), Qt::SkipEmptyParts))
        if (!articles.contains(mot))
            mots << mot;
    static const QStringList boites{"contact", "administration", "production", "accueil"};
    return hasard.choisir(boites) + QLatin1Char('@') + mots.join(QLatin1Char('-')) + QStringLiteral(".fr");
}

QString siret(Hasard& hasard)
{
    QString siren = QString(QChar(u'1' + hasard.entre(0, 8))) + chiffres(7, hasard);
    siren += cleLuhn(siren);
    const QString debut = siren + QStringLiteral("000") + chiffres(1, hasard);
    return debut + cleLuhn(debut);
}

QString licenceSpectacle(int annee, Hasard& hasard)
{
    if (annee >= 2020)
        return QStringLiteral("PLATESV-R-%1-%2").arg(annee).arg(hasard.entre(1, 20000), 6, 10, QChar(u'0'));
    return QStringLiteral("%1-%2").arg(hasard.entre(1, 3)).arg(hasard.entre(1000000, 1099999));
}

QString codeApe(Genre genre, Hasard& hasard)
{
    switch (genre) {
    case Genre::Theatre:
        return QStringLiteral("9004Z");
    case Genre::Compagnie:
    case Genre::Orchestre:
        return QStringLiteral("9001Z");
    case Genre::Festival:
        return hasard.chance(0.5) ? QStringLiteral("9001Z") : QStringLiteral("9002Z");
    case Genre::Production:
        return hasard.choisir(QStringList{"5911A", "5911C", "5912Z"});
    case Genre::Salle:
        return hasard.chance(0.7) ? QStringLiteral("9004Z") : QStringLiteral("5630Z");
    case Genre::Association:
        return QStringLiteral("9499Z");
    case Genre::Ecole:
        return QStringLiteral("8552Z");
    case Genre::Formation:
        return QStringLiteral("8559A");
    case Genre::RegimeGeneral:
        return hasard.choisir(QStringList{"9102Z", "9101Z", "7990Z"});
    }
    return {};
}

QString fonction(Genre genre, Hasard& hasard)
{
    switch (genre) {
    case Genre::Theatre:
    case Genre::Compagnie:
        return QStringLiteral("Comédienne");
    case Genre::Festival:
        return hasard.choisir(QStringList{"Comédienne", "Chanteuse", "Artiste de rue"});
    case Genre::Production:
        return hasard.choisir(QStringList{"Comédienne", "Comédienne (second rôle)", "Voix off", "Doublage"});
    case Genre::Orchestre:
        return hasard.choisir(QStringList{"Choriste", "Soliste", "Chanteuse lyrique"});
    case Genre::Salle:
        return hasard.choisir(QStringList{"Chanteuse", "Artiste de cabaret", "Comédienne"});
    case Genre::Association:
        return QStringLiteral("Chanteuse");
    case Genre::Ecole:
        return hasard.choisir(QStringList{"Intervenante théâtre", "Professeure de chant", "Intervenante artistique"});
    case Genre::Formation:
        return QStringLiteral("Stagiaire");
    case Genre::RegimeGeneral:
        return hasard.choisir(QStringList{"Agent d'accueil", "Médiatrice culturelle", "Guide conférencière"});
    }
    return {};
}

QString titreSpectacle(Hasard& hasard)
{
    return auHasard(kTitres, hasard);
}

QString note(Genre genre, int jours, Hasard& hasard)
{
    if (hasard.chance(0.25))
        return {};
    const QString titre = QStringLiteral("« %1 »").arg(titreSpectacle(hasard));
    const QString oeuvre = QStringLiteral("« %1 »").arg(auHasard(kOeuvres, hasard));
    switch (genre) {
    case Genre::Ecole:
        return hasard.choisir(QStringList{"Atelier théâtre (classe de 4e)", "Cours de chant", "Atelier voix",
                                          "Option théâtre, terminale"});
    case Genre::Formation:
        return QStringLiteral("Stage AFDAS : ") +
               hasard.choisir(QStringList{"chant et interprétation", "doublage", "jeu face caméra", "clown"});
    case Genre::RegimeGeneral:
        return hasard.choisir(QStringList{"Accueil du public", "Visites guidées", "Nocturne d'été"});
    case Genre::Orchestre:
        return (jours >= 5 ? QStringLiteral("Répétitions et concerts ") : QStringLiteral("Concert ")) + oeuvre;
    case Genre::Production:
        return (hasard.chance(0.3) ? QStringLiteral("Doublage ") : QStringLiteral("Tournage ")) + titre;
    default:
        if (jours >= 5)
            return hasard.choisir(QStringList{"Répétitions et représentations ", "Résidence de création "}) + titre;
        return hasard.choisir(QStringList{"Représentation ", "Lecture publique ", "Tournée "}) + titre;
    }
}

double distanceKm(const Ville& a, const Ville& b)
{
    const double rad = std::numbers::pi / 180.0;
    const double dLat = (b.latitude - a.latitude) * rad;
    const double dLon = (b.longitude - a.longitude) * rad;
    const double h = std::sin(dLat / 2) * std::sin(dLat / 2) +
                     std::cos(a.latitude * rad) * std::cos(b.latitude * rad) * std::sin(dLon / 2) * std::sin(dLon / 2);
    return 2 * 6371.0 * std::asin(std::sqrt(h));
}

double smicHoraire(int annee)
{
    return std::round((8.03 + 0.19 * (annee - 2005)) * 100.0) / 100.0;
}

} // namespace Catalogue
} // namespace corvane::bench
