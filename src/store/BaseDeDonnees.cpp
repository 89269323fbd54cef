#include "store/BaseDeDonnees.h"

#include "store/Dates.h"
#include "store/ErreursSQLite.h"
#include "store/Horloge.h"
#include "store/Reprise.h"

#include <QFileInfo>
#include <QStringDecoder>
#include <sqlite3.h>

namespace corvane {

Ligne Table::ligne(qsizetype rangee) const
{
    Ligne l;
    const QVariantList& valeurs = rangees.at(rangee);
    for (int i = 0; i < cles.size(); ++i)
        l.insert(cles.at(i), valeurs.at(i));
    return l;
}

namespace {
int g_attenteOccupe = 5000;
} // namespace

int BaseDeDonnees::attenteOccupe()
{
    return g_attenteOccupe;
}

void BaseDeDonnees::fixerAttenteOccupe(int millisecondes)
{
    g_attenteOccupe = millisecondes;
}

BaseDeDonnees BaseDeDonnees::emprunter(const BaseDeDonnees& proprietaire)
{
    BaseDeDonnees base;
    base.m_db = proprietaire.m_db;
    base.m_chemin = proprietaire.m_chemin;
    base.m_proprietaire = false;
    return base;
}

BaseDeDonnees::~BaseDeDonnees()
{
    fermer();
}

BaseDeDonnees::BaseDeDonnees(BaseDeDonnees&& autre) noexcept
    : m_db(autre.m_db), m_proprietaire(autre.m_proprietaire), m_chemin(std::move(autre.m_chemin)),
      m_erreur(std::move(autre.m_erreur))
{
    autre.m_db = nullptr;
}

BaseDeDonnees& BaseDeDonnees::operator=(BaseDeDonnees&& autre) noexcept
{
    if (this != &autre) {
        fermer();
        m_db = autre.m_db;
        m_proprietaire = autre.m_proprietaire;
        m_chemin = std::move(autre.m_chemin);
        m_erreur = std::move(autre.m_erreur);
        autre.m_db = nullptr;
    }
    return *this;
}

bool BaseDeDonnees::ouvrirAvecDrapeaux(const QString& chemin, int drapeaux)
{
    fermer();
    Horloge::installerDansSQLite();
    m_proprietaire = true;
    m_chemin = chemin;
    const int rc = sqlite3_open_v2(chemin.toUtf8().constData(), &m_db, drapeaux, nullptr);
    if (rc != SQLITE_OK) {
        m_erreur = ErreursSQLite::raison(m_db ? sqlite3_extended_errcode(m_db) : rc);
        sqlite3_close(m_db);
        m_db = nullptr;
        return false;
    }
    // Long enough for another program's ordinary write to end; a lock held longer is "in use".
    sqlite3_busy_timeout(m_db, attenteOccupe());
    return true;
}

bool BaseDeDonnees::ouvrir(const QString& chemin)
{
    if (chemin.isEmpty() || !QFileInfo(chemin).isFile()) {
        m_erreur = QStringLiteral("fichier introuvable");
        return false;
    }
    return ouvrirAvecDrapeaux(chemin, SQLITE_OPEN_READWRITE);
}

bool BaseDeDonnees::ouvrirEnLecture(const QString& chemin)
{
    if (chemin.isEmpty() || !QFileInfo(chemin).isFile()) {
        m_erreur = QStringLiteral("fichier introuvable");
        return false;
    }
    const Reprise::ModeLecture mode = Reprise::preparer(chemin);
    if (!ouvrirAvecDrapeaux(chemin, mode.drapeaux))
        return false;
    if (mode.requetesSeules)
        sqlite3_exec(m_db, "PRAGMA query_only = 1;", nullptr, nullptr, nullptr);
    return true;
}

bool BaseDeDonnees::creer(const QString& chemin)
{
    if (chemin.isEmpty() || QFileInfo::exists(chemin)) {
        m_erreur = QStringLiteral("le fichier existe déjà");
        return false;
    }
    return ouvrirAvecDrapeaux(chemin, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
}

void BaseDeDonnees::fermer()
{
    if (m_db && m_proprietaire)
        sqlite3_close_v2(m_db);
    m_db = nullptr;
    m_proprietaire = true;
}

bool BaseDeDonnees::estEnLectureSeule() const
{
    return m_db && sqlite3_db_readonly(m_db, "main") == 1;
}

void BaseDeDonnees::noterErreur()
{
    if (m_db)
        m_erreur = ErreursSQLite::raison(sqlite3_extended_errcode(m_db), m_chemin);
}

int BaseDeDonnees::exec(const QString& texte)
{
    if (!m_db)
        return SQLITE_MISUSE;
    const QByteArray utf8 = texte.toUtf8();
    const char* debut = utf8.constData();
    const char* fin = debut + utf8.size();
    int premiereErreur = SQLITE_OK;
    while (debut < fin) {
        sqlite3_stmt* stmt = nullptr;
        const char* suite = nullptr;
        int rc = sqlite3_prepare_v2(m_db, debut, int(fin - debut), &stmt, &suite);
        if (rc != SQLITE_OK) {
            noterErreur();
            if (premiereErreur == SQLITE_OK)
                premiereErreur = rc;
            // A statement that parsed but could not be prepared ends cleanly at its ';':
            // go on after it. A syntax error leaves no reliable boundary: stop there.
            const QByteArray lu(debut, suite ? int(suite - debut) : 0);
            if (!suite || suite <= debut || !sqlite3_complete(lu.constData()))
                break;
            debut = suite;
            continue;
        }
        if (stmt) {
            while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
            }
            if (rc != SQLITE_DONE) {
                noterErreur();
                if (premiereErreur == SQLITE_OK)
                    premiereErreur = rc;
            }
            sqlite3_finalize(stmt);
        }
        debut = suite;
    }
    return premiereErreur;
}

qint64 BaseDeDonnees::entier(const QString& sql, const QVariantList& valeurs)
{
    Requete r(*this, sql);
    r.lierTout(valeurs);
    return r.suivante() ? r.entier(0) : 0;
}

double BaseDeDonnees::reel(const QString& sql, const QVariantList& valeurs)
{
    Requete r(*this, sql);
    r.lierTout(valeurs);
    return r.suivante() ? r.reel(0) : 0.0;
}

QString BaseDeDonnees::texte(const QString& sql, const QVariantList& valeurs)
{
    Requete r(*this, sql);
    r.lierTout(valeurs);
    return r.suivante() ? r.texte(0) : QString();
}

QStringList BaseDeDonnees::colonne(const QString& sql, const QVariantList& valeurs)
{
    QStringList resultat;
    Requete r(*this, sql);
    r.lierTout(valeurs);
    while (r.suivante())
        resultat << r.texte(0);
    return resultat;
}

Lignes BaseDeDonnees::lignes(const QString& sql, const QVariantList& valeurs)
{
    Lignes resultat;
    Requete r(*this, sql);
    r.lierTout(valeurs);
    while (r.suivante())
        resultat << r.ligne();
    return resultat;
}

int BaseDeDonnees::executer(const QString& sql, const QVariantList& valeurs)
{
    Requete r(*this, sql);
    if (!r.estPreparee()) {
        noterErreur();
        return r.code();
    }
    r.lierTout(valeurs);
    const int rc = r.executer();
    if (rc != SQLITE_DONE)
        noterErreur();
    return rc;
}

qint64 BaseDeDonnees::dernierIdInsere() const
{
    return m_db ? sqlite3_last_insert_rowid(m_db) : 0;
}

int BaseDeDonnees::modifications() const
{
    return m_db ? sqlite3_changes(m_db) : 0;
}

bool BaseDeDonnees::tableExiste(const QString& table)
{
    return entier(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND name = ?;"), {table}) > 0;
}

QStringList BaseDeDonnees::tables()
{
    return colonne(QStringLiteral(
        "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' ORDER BY name;"));
}

// --- Requete -------------------------------------------------------------------------

Requete::Requete(BaseDeDonnees& base, const QString& sql)
{
    if (!base.handle()) {
        m_code = SQLITE_MISUSE;
        return;
    }
    m_code = sqlite3_prepare_v2(base.handle(), sql.toUtf8().constData(), -1, &m_stmt, nullptr);
    if (m_code != SQLITE_OK) {
        sqlite3_finalize(m_stmt);
        m_stmt = nullptr;
    }
}

Requete::~Requete()
{
    sqlite3_finalize(m_stmt);
}

Requete& Requete::lier(int index, const QVariant& valeur)
{
    if (!m_stmt)
        return *this;
    if (valeur.isNull()) {
        sqlite3_bind_null(m_stmt, index);
        return *this;
    }
    switch (valeur.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        sqlite3_bind_int64(m_stmt, index, valeur.toLongLong());
        break;
    case QMetaType::Double:
    case QMetaType::Float:
        sqlite3_bind_double(m_stmt, index, valeur.toDouble());
        break;
    case QMetaType::QDate: {
        const QByteArray t = Dates::versSQLite(valeur.toDate()).toUtf8();
        sqlite3_bind_text(m_stmt, index, t.constData(), int(t.size()), SQLITE_TRANSIENT);
        break;
    }
    default: {
        const QByteArray t = valeur.toString().toUtf8();
        sqlite3_bind_text(m_stmt, index, t.constData(), int(t.size()), SQLITE_TRANSIENT);
        break;
    }
    }
    return *this;
}

Requete& Requete::lierTout(const QVariantList& valeurs)
{
    for (int i = 0; i < valeurs.size(); ++i)
        lier(i + 1, valeurs.at(i));
    return *this;
}

bool Requete::suivante()
{
    if (!m_stmt)
        return false;
    m_code = sqlite3_step(m_stmt);
    return m_code == SQLITE_ROW;
}

int Requete::executer()
{
    if (!m_stmt)
        return m_code;
    while ((m_code = sqlite3_step(m_stmt)) == SQLITE_ROW) {
    }
    return m_code;
}

void Requete::reinitialiser()
{
    if (m_stmt) {
        sqlite3_reset(m_stmt);
        sqlite3_clear_bindings(m_stmt);
    }
}

int Requete::nombreColonnes() const
{
    return m_stmt ? sqlite3_column_count(m_stmt) : 0;
}

QString Requete::nomColonne(int colonne) const
{
    return m_stmt ? QString::fromUtf8(sqlite3_column_name(m_stmt, colonne)) : QString();
}

bool Requete::estNul(int colonne) const
{
    return !m_stmt || sqlite3_column_type(m_stmt, colonne) == SQLITE_NULL;
}

qint64 Requete::entier(int colonne) const
{
    return m_stmt ? sqlite3_column_int64(m_stmt, colonne) : 0;
}

double Requete::reel(int colonne) const
{
    return m_stmt ? sqlite3_column_double(m_stmt, colonne) : 0.0;
}

QString Requete::texte(int colonne) const
{
    if (!m_stmt)
        return {};
    const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(m_stmt, colonne));
    if (!t)
        return {};
    const int taille = sqlite3_column_bytes(m_stmt, colonne);
    if (taille == 0)
        return QString::fromUtf8(t, 0);
    // QString::fromUtf8 would drop a leading byte-order mark: a stored text comes back whole.
    QStringDecoder decodeur(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return decodeur.decode(QByteArrayView(t, taille));
}

QByteArrayView Requete::octets(int colonne) const
{
    if (!m_stmt)
        return {};
    const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(m_stmt, colonne));
    return t ? QByteArrayView(t, sqlite3_column_bytes(m_stmt, colonne)) : QByteArrayView();
}

QVariant Requete::valeur(int colonne) const
{
    if (!m_stmt)
        return {};
    switch (sqlite3_column_type(m_stmt, colonne)) {
    case SQLITE_INTEGER:
        return QVariant::fromValue<qint64>(sqlite3_column_int64(m_stmt, colonne));
    case SQLITE_FLOAT:
        return sqlite3_column_double(m_stmt, colonne);
    case SQLITE_NULL:
        return {};
    case SQLITE_BLOB:
        return QByteArray(static_cast<const char*>(sqlite3_column_blob(m_stmt, colonne)),
                          sqlite3_column_bytes(m_stmt, colonne));
    default:
        return texte(colonne);
    }
}

Ligne Requete::ligne() const
{
    Ligne l;
    for (int i = 0; i < nombreColonnes(); ++i)
        l.insert(nomColonne(i), valeur(i));
    return l;
}

} // namespace corvane
