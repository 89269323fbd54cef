#pragma once

#include "store/Reglages.h"

#include <QList>
#include <QString>

class QWidget;

namespace corvane::app {

struct Environnement;

// The web sites a screen opens in the user's own browser: the paid-leave fund's member
// area and the self-employed declaration site. Their addresses are settings the user may
// change in the preferences; Corvane hands the browser the address only, never an
// identifier or a password.
struct SiteInternet
{
    Reglages::Cle cle;
    QString libelle; // "Congés Spectacles"
};
const QList<SiteInternet>& sitesInternet();

// "" when `adresse` is an http or https address, else why not, in French.
QString refusAdresse(const QString& adresse);

// Opens the site of `cle` in the user's browser; an address that is not one, or a browser that
// cannot be started, is told under `titre`. False when nothing was opened.
bool ouvrirSite(Environnement& environnement, Reglages::Cle cle, const QString& titre);

} // namespace corvane::app
