#include "store/Dates.h"

#include "store/Horloge.h"

#include <QTimeZone>

namespace corvane::Dates {

namespace {

int nombre(const QString& texte, int position, int longueur, bool* ok)
{
    return texte.mid(position, longueur).toInt(ok, 10);
}

const QTimeZone& plusUneHeure()
{
    static const QTimeZone zone(3600);
    return zone;
}

} // namespace

QString versSQLite(const QDate& jour)
{
    if (!jour.isValid())
        return {};
    return jour.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 00:00:00.000");
}

QDate depuisSQLite(const QString& texte)
{
    if (texte.size() < 10)
        return {};
    bool okA = false, okM = false, okJ = false;
    const int annee = nombre(texte, 0, 4, &okA);
    const int mois = nombre(texte, 5, 2, &okM);
    const int jour = nombre(texte, 8, 2, &okJ);
    if (!okA || !okM || !okJ)
        return {};
    return QDate(annee, mois, jour);
}

QString versAffichage(const QDate& jour)
{
    if (!jour.isValid())
        return {};
    int annee = 0, mois = 0, quantieme = 0;
    jour.getDate(&annee, &mois, &quantieme);
    if (annee < 1000 || annee > 9999)
        return jour.toString(QStringLiteral("dd/MM/yyyy"));
    // Written by hand: listings format two dates per row, and the format parser is slow.
    const char16_t texte[10] = {
        char16_t(u'0' + quantieme / 10), char16_t(u'0' + quantieme % 10),   u'/',
        char16_t(u'0' + mois / 10),      char16_t(u'0' + mois % 10),        u'/',
        char16_t(u'0' + annee / 1000),   char16_t(u'0' + annee / 100 % 10), char16_t(u'0' + annee / 10 % 10),
        char16_t(u'0' + annee % 10)};
    return QString(reinterpret_cast<const QChar*>(texte), 10);
}

QDate depuisAffichage(const QString& texte)
{
    const QStringList morceaux = texte.trimmed().split(QLatin1Char('/'));
    if (morceaux.size() != 3)
        return {};
    bool okJ = false, okM = false, okA = false;
    const int jour = morceaux[0].toInt(&okJ);
    const int mois = morceaux[1].toInt(&okM);
    const int annee = morceaux[2].toInt(&okA);
    if (!okJ || !okM || !okA || morceaux[2].size() != 4)
        return {};
    return QDate(annee, mois, jour);
}

QDate depuisIso(const QString& texte)
{
    if (texte.size() != 10)
        return {};
    return QDate::fromString(texte, QStringLiteral("yyyy-MM-dd"));
}

QDateTime conversionDateSQLiteEnNSDate(const QString& texte)
{
    const QDate jour = depuisSQLite(texte);
    return jour.isValid() ? QDateTime(jour, QTime(1, 0), Qt::LocalTime) : QDateTime();
}

QDateTime lectureAvecDecalage(const QString& texte)
{
    const QDate jour = depuisSQLite(texte);
    if (!jour.isValid())
        return {};
    const QTime heure = QTime::fromString(texte.mid(11, 8), QStringLiteral("HH:mm:ss"));
    return QDateTime(jour, heure.isValid() ? heure : QTime(0, 0), plusUneHeure());
}

QDateTime conversionDateAMinuit(const QDateTime& date)
{
    return date.isValid() ? QDateTime(date.date(), QTime(0, 0), plusUneHeure()) : QDateTime();
}

QDateTime dateDeBascule(int annee, int mois, int jour)
{
    return QDateTime(QDate(annee, mois, jour), QTime(0, 0), plusUneHeure());
}

QString description(const QDateTime& date)
{
    if (!date.isValid())
        return {};
    const int decalage = date.offsetFromUtc();
    const int minutes = qAbs(decalage) / 60;
    return date.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss ")) +
           (decalage < 0 ? QLatin1Char('-') : QLatin1Char('+')) +
           QStringLiteral("%1%2").arg(minutes / 60, 2, 10, QLatin1Char('0')).arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

QString conversionNSDateDescriptionEnSQLite(const QString& description)
{
    return description.left(10) + QStringLiteral(" 00:00:00.000");
}

QString getTimeFromNSDateDescription(const QString& description)
{
    return QStringLiteral("%1:%2:%3").arg(description.mid(11, 2), description.mid(14, 2), description.mid(17, 2));
}

QDateTime getTimeFromDateSQLite(const QString& texte)
{
    bool okH = false, okM = false, okS = false;
    const int h = nombre(texte, 0, 2, &okH);
    const int m = nombre(texte, 3, 2, &okM);
    const int s = nombre(texte, 6, 2, &okS);
    return QDateTime(Horloge::aujourdhui(), QTime(okH ? h : 0, okM ? m : 0, okS ? s : 0), Qt::LocalTime);
}

int anneeDeLaDate(const QDate& jour)
{
    return jour.year();
}

qint64 joursEntre(const QDate& debut, const QDate& fin)
{
    if (!debut.isValid() || !fin.isValid())
        return 0;
    return debut.daysTo(fin);
}

} // namespace corvane::Dates
