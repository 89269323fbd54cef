#include "store/SaisieFrancaise.h"

#include "store/FormatFrancais.h"

#include <QLocale>
#include <QStringDecoder>
#include <QStringList>
#include <cmath>
#include <limits>

namespace corvane {

namespace {

constexpr QChar kEuro(0x20AC);
constexpr QChar kMoins(0x2212);

bool estSeparateurDeMilliers(QChar c)
{
    return c == QLatin1Char(' ') || c == QChar(0x00A0) || c == QChar(0x202F) || c == QChar(0x2009);
}

bool estChiffre(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

QString exemple(const Bornes& bornes)
{
    return bornes.decimales > 0 ? QStringLiteral("1 977,50") : QStringLiteral("1 200");
}

Lecture<double> refus(const QString& erreur)
{
    return {std::nullopt, erreur};
}

// A character shown in a message: a blank or an invisible one by its code.
QString montrer(QChar c)
{
    if (c.isPrint() && !c.isSpace())
        return QStringLiteral("« %1 »").arg(c);
    return QStringLiteral("U+%1").arg(c.unicode(), 4, 16, QLatin1Char('0')).toUpper();
}

} // namespace

namespace Limites {

QDate premierJour()
{
    return QDate(kAnneeMinimum, 1, 1);
}

QDate dernierJour()
{
    return QDate(kAnneeMaximum, 12, 31);
}

QDate premiereNaissance()
{
    return QDate(1900, 1, 1);
}

} // namespace Limites

namespace SaisieFrancaise {

QString texteNombre(double valeur, const Bornes& bornes)
{
    const QLocale& francais = localeFrancaise();
    // The messages read in a terminal too: ordinary blanks between thousands.
    QString texte = francais.toString(valeur, 'f', bornes.euros ? 2 : bornes.decimales);
    if (!bornes.euros && bornes.decimales > 0 && valeur == std::trunc(valeur))
        texte = francais.toString(valeur, 'f', 0);
    // Four digits stand ungrouped, as French typography writes them (years read naturally).
    if (std::abs(valeur) < 10000.0)
        texte.remove(francais.groupSeparator());
    texte.replace(francais.groupSeparator(), QStringLiteral(" "));
    texte.replace(QChar(0x202F), QLatin1Char(' '));
    texte.replace(QChar(0x00A0), QLatin1Char(' '));
    return bornes.euros ? texte + QStringLiteral(" €") : texte;
}

QString refusNombre(double valeur, const Bornes& bornes)
{
    if (!bornes.euros) {
        if (!std::isfinite(valeur) || valeur < bornes.minimum || valeur > bornes.maximum)
            return QStringLiteral("la valeur doit être comprise entre %1 et %2")
                .arg(texteNombre(bornes.minimum, bornes), texteNombre(bornes.maximum, bornes));
        return {};
    }
    if (!std::isfinite(valeur))
        return QStringLiteral("le montant n'est pas un nombre fini");
    if (valeur < bornes.minimum) {
        if (bornes.minimum == 0.0)
            return QStringLiteral("un montant négatif n'est pas permis");
        return QStringLiteral("le montant ne peut pas être inférieur à %1").arg(texteNombre(bornes.minimum, bornes));
    }
    if (valeur > bornes.maximum)
        return QStringLiteral("le montant ne peut pas dépasser %1").arg(texteNombre(bornes.maximum, bornes));
    return {};
}

QString refusEntier(qint64 valeur, int minimum, int maximum)
{
    return refusNombre(double(valeur), Bornes{double(minimum), double(maximum), 0, false});
}

QString refusDate(const QDate& jour, const QDate& premier, const QDate& dernier)
{
    if (!jour.isValid())
        return QStringLiteral("la date n'est pas valide");
    if (jour < premier || jour > dernier)
        return QStringLiteral("la date doit être comprise entre le %1 et le %2")
            .arg(premier.toString(QStringLiteral("dd/MM/yyyy")), dernier.toString(QStringLiteral("dd/MM/yyyy")));
    return {};
}

QString refusDate(const QDate& jour)
{
    return refusDate(jour, Limites::premierJour(), Limites::dernierJour());
}

Lecture<double> nombre(const QString& texte, const Bornes& bornes)
{
    QString t = texte.trimmed();
    if (t.isEmpty())
        return refus(QStringLiteral("aucune valeur n'est saisie"));
    if (bornes.euros && t.endsWith(kEuro)) {
        t.chop(1);
        t = t.trimmed();
    }
    bool negatif = false;
    if (t.startsWith(QLatin1Char('-')) || t.startsWith(kMoins) || t.startsWith(QLatin1Char('+'))) {
        negatif = t.at(0) != QLatin1Char('+');
        t = t.mid(1).trimmed();
    }
    const QString parExemple = QStringLiteral(" (par exemple %1)").arg(exemple(bornes));
    const QString groupes =
        QStringLiteral("les milliers se séparent par une espace tous les trois chiffres") + parExemple;

    QString entiere;
    QString decimales;
    bool dansDecimales = false;
    QChar separateur;
    QList<int> tailles; // digits of each group of the integer part
    int groupe = 0;
    for (const QChar c : t) {
        if (estChiffre(c)) {
            if (dansDecimales) {
                decimales += c;
            } else {
                entiere += c;
                ++groupe;
            }
        } else if (estSeparateurDeMilliers(c)) {
            if (dansDecimales || groupe == 0)
                return refus(groupes);
            tailles << groupe;
            groupe = 0;
        } else if (c == QLatin1Char(',') || c == QLatin1Char('.')) {
            if (dansDecimales)
                return refus(
                    QStringLiteral("un seul séparateur décimal est permis, une virgule ou un point ; %1").arg(groupes));
            if (groupe == 0)
                return refus(tailles.isEmpty() ? QStringLiteral("il manque un chiffre avant %1")
                                                     .arg(c == QLatin1Char(',') ? QStringLiteral("la virgule")
                                                                                : QStringLiteral("le point"))
                                               : groupes);
            tailles << groupe;
            groupe = 0;
            dansDecimales = true;
            separateur = c;
        } else {
            return refus(QStringLiteral("le caractère %1 n'est pas permis%2").arg(montrer(c), parExemple));
        }
    }
    if (!dansDecimales) {
        if (groupe == 0)
            return refus(QStringLiteral("aucun chiffre n'est saisi"));
        tailles << groupe;
    }
    for (int i = 1; i < tailles.size(); ++i) {
        if (tailles.at(i) != 3 || tailles.first() > 3)
            return refus(groupes);
    }
    if (dansDecimales && decimales.isEmpty())
        return refus(
            QStringLiteral("il manque les décimales après %1")
                .arg(separateur == QLatin1Char(',') ? QStringLiteral("la virgule") : QStringLiteral("le point")));
    if (decimales.size() > bornes.decimales)
        return refus(bornes.decimales == 0 ? QStringLiteral("un nombre entier est attendu, sans décimales")
                     : bornes.euros && bornes.decimales == 2
                         ? QStringLiteral("un montant a deux décimales au plus, les centimes")
                         : QStringLiteral("%1 décimales au plus sont permises").arg(bornes.decimales));

    bool lu = false;
    double valeur = (decimales.isEmpty() ? entiere : entiere + QLatin1Char('.') + decimales).toDouble(&lu);
    if (!lu || !std::isfinite(valeur))
        valeur = std::numeric_limits<double>::max(); // too many digits: beyond every bound
    if (negatif)
        valeur = -valeur;
    if (valeur == 0.0)
        valeur = 0.0; // never "-0"
    if (const QString erreur = refusNombre(valeur, bornes); !erreur.isEmpty())
        return refus(erreur);
    return {valeur, {}};
}

std::optional<QString> texteUtf8(QByteArrayView octets)
{
    QStringDecoder decodeur(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    QString texte = decodeur.decode(octets);
    if (decodeur.hasError())
        return std::nullopt;
    return texte;
}

Lecture<int> entier(const QString& texte, int minimum, int maximum)
{
    const Bornes bornes{double(minimum), double(maximum), 0, false};
    const Lecture<double> lu = nombre(texte, bornes);
    if (!lu.ok())
        return {std::nullopt, lu.erreur};
    return {int(*lu.valeur), {}};
}

} // namespace SaisieFrancaise

} // namespace corvane
