#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>
#include <QVariantMap>

struct sqlite3;
struct sqlite3_stmt;

namespace corvane {

// One row of a listing, keyed by column name (or by the display keys a model gives it).
using Ligne = QVariantMap;
using Lignes = QList<Ligne>;

// A null text binds as NULL; the documents' text columns want '' for an empty field.
inline QString texteNonNul(const QString& texte)
{
    return texte.isNull() ? QStringLiteral("") : texte;
}

// A listing: one header of display keys shared by every row, and one vector of values
// per row in the header's order. Screens, JSON, CSV and PDF all read the same table;
// a model looks its column indexes up once.
struct Table
{
    QStringList cles;
    QList<QVariantList> rangees;

    qsizetype size() const { return rangees.size(); }
    bool isEmpty() const { return rangees.isEmpty(); }
    // The column of a key, -1 when the listing has none.
    int colonne(const QString& cle) const { return int(cles.indexOf(cle)); }
    QVariant valeur(qsizetype rangee, int colonne) const
    {
        return colonne < 0 ? QVariant() : rangees.at(rangee).at(colonne);
    }
    QVariant valeur(qsizetype rangee, const QString& cle) const { return valeur(rangee, colonne(cle)); }
    // One row keyed by the display keys, for the few callers that want a map.
    Ligne ligne(qsizetype rangee) const;
};

// RAII over one SQLite connection. A document is opened without ever being
// created; creation is a separate, explicit call that refuses an existing path.
class BaseDeDonnees
{
public:
    BaseDeDonnees() = default;
    ~BaseDeDonnees();
    // A second handle on a connection someone else owns (a document's): it is never
    // closed through this handle, and must not outlive the owner.
    static BaseDeDonnees emprunter(const BaseDeDonnees& proprietaire);
    // How long a connection waits for another program's lock before the document is "in use"
    // (5 s); the tests that hold such a lock shorten it.
    static int attenteOccupe();
    static void fixerAttenteOccupe(int millisecondes);
    BaseDeDonnees(const BaseDeDonnees&) = delete;
    BaseDeDonnees& operator=(const BaseDeDonnees&) = delete;
    BaseDeDonnees(BaseDeDonnees&& autre) noexcept;
    BaseDeDonnees& operator=(BaseDeDonnees&& autre) noexcept;

    // Opens an existing file for reading and writing. Fails on a missing path.
    bool ouvrir(const QString& chemin);
    // Opens an existing file read-only (recognition, counts): nothing is ever written.
    bool ouvrirEnLecture(const QString& chemin);
    // Creates a new file; fails when something already stands at the path.
    bool creer(const QString& chemin);
    void fermer();

    bool estOuverte() const { return m_db != nullptr; }
    bool estEmpruntee() const { return !m_proprietaire; }
    bool estEnLectureSeule() const;
    sqlite3* handle() const { return m_db; }
    QString chemin() const { return m_chemin; }
    QString derniereErreur() const { return m_erreur; }

    // Runs a whole text of statements, one after the other. A statement that fails
    // is skipped and the next one runs; the first failure's code is returned.
    int exec(const QString& texte);

    // One-statement helpers: prepare, bind, step once, read column 0.
    // A statement that fails or yields no row gives 0, 0.0 or an empty text.
    qint64 entier(const QString& sql, const QVariantList& valeurs = {});
    double reel(const QString& sql, const QVariantList& valeurs = {});
    QString texte(const QString& sql, const QVariantList& valeurs = {});
    // Column 0 of every row.
    QStringList colonne(const QString& sql, const QVariantList& valeurs = {});
    // Every row keyed by column name.
    Lignes lignes(const QString& sql, const QVariantList& valeurs = {});
    // Prepares, binds and steps a statement to its end; returns the SQLite code.
    int executer(const QString& sql, const QVariantList& valeurs = {});

    qint64 dernierIdInsere() const;
    int modifications() const;
    bool tableExiste(const QString& table);
    QStringList tables();

private:
    bool ouvrirAvecDrapeaux(const QString& chemin, int drapeaux);
    void noterErreur();

    sqlite3* m_db = nullptr;
    bool m_proprietaire = true;
    QString m_chemin;
    QString m_erreur;
};

// A prepared statement. Values bound from QVariant: text, integers, doubles, null.
class Requete
{
public:
    Requete(BaseDeDonnees& base, const QString& sql);
    ~Requete();
    Requete(const Requete&) = delete;
    Requete& operator=(const Requete&) = delete;

    bool estPreparee() const { return m_stmt != nullptr; }
    int code() const { return m_code; }

    Requete& lier(int index, const QVariant& valeur); // index from 1
    Requete& lierTout(const QVariantList& valeurs);

    // Steps once: true when a row is available.
    bool suivante();
    // Steps to the end; returns SQLITE_DONE on success, the error code otherwise.
    int executer();
    void reinitialiser();

    int nombreColonnes() const;
    QString nomColonne(int colonne) const;
    bool estNul(int colonne) const;
    qint64 entier(int colonne) const;
    double reel(int colonne) const;
    QString texte(int colonne) const;
    // The stored text's UTF-8 bytes in place, unchecked; null for NULL. Valid until the next step.
    QByteArrayView octets(int colonne) const;
    QVariant valeur(int colonne) const;
    Ligne ligne() const;

private:
    sqlite3_stmt* m_stmt = nullptr;
    int m_code = 0;
};

} // namespace corvane
