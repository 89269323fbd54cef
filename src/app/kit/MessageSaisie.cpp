#include "app/kit/MessageSaisie.h"

#include "app/kit/ChampChiffre.h"

namespace corvane::app {

MessageSaisie::MessageSaisie(QWidget* parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("messageSaisie"));
    setWordWrap(true);
    setStyleSheet(QStringLiteral("color: #c01c28;"));
    hide();
}

void MessageSaisie::surveiller(ChampChiffre* champ, const QString& libelle)
{
    m_champs << qMakePair(champ, libelle);
    connect(champ, &QLineEdit::textChanged, this, &MessageSaisie::actualiser);
    connect(champ, &QObject::destroyed, this, [this, champ] {
        m_champs.removeIf([champ](const QPair<ChampChiffre*, QString>& p) { return p.first == champ; });
    });
    actualiser();
}

void MessageSaisie::renommer(ChampChiffre* champ, const QString& libelle)
{
    for (auto& [surveille, nom] : m_champs)
        if (surveille == champ)
            nom = libelle;
    actualiser();
}

QString MessageSaisie::refus() const
{
    for (const auto& [champ, libelle] : m_champs) {
        if (!champ->estValide())
            return QStringLiteral("%1 : %2.").arg(libelle, champ->erreur());
    }
    return {};
}

void MessageSaisie::actualiser()
{
    const QString texte = refus();
    setText(texte);
    setVisible(!texte.isEmpty());
}

} // namespace corvane::app
