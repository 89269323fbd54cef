#include "app/manager/ModelePropositions.h"

#include "manager/Propositions.h"

#include <QHash>
#include <QPainter>
#include <QPixmap>

namespace corvane::app {

namespace {

QPixmap disque(const QColor& couleur, QChar initiale, int taille)
{
    QPixmap image(taille, taille);
    image.fill(Qt::transparent);
    QPainter peintre(&image);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(couleur);
    peintre.drawEllipse(QRectF(0.5, 0.5, taille - 1.0, taille - 1.0));
    QFont police = peintre.font();
    police.setBold(true);
    police.setPixelSize(taille * 5 / 8);
    peintre.setFont(police);
    peintre.setPen(Qt::white);
    peintre.drawText(QRect(0, 0, taille, taille), Qt::AlignCenter, QString(initiale));
    return image;
}

} // namespace

ModelePropositions::ModelePropositions(QObject* parent)
    : ModeleTableau({{QString(), QStringLiteral("Statut"), Format::Entier},
                     {QStringLiteral("Libellé"), QStringLiteral("Libellé")},
                     {QStringLiteral("Organisateur"), QStringLiteral("Organisateur")},
                     {QStringLiteral("Date"), QStringLiteral("Date"), Format::DateAffichee},
                     {QStringLiteral("Lieu"), QStringLiteral("Commune")},
                     {QStringLiteral("Montant"), QStringLiteral("Montant"), Format::Montant}},
                    parent)
{
}

QIcon ModelePropositions::iconeStatut(int statut)
{
    static QHash<int, QIcon> icones;
    if (statut == Propositions::kPreparation || !Propositions::statutsDuMenu().contains(statut))
        return {};
    if (!icones.contains(statut)) {
        static const QHash<int, QColor> couleurs{{Propositions::kEnvoyee, QColor(0x34, 0x65, 0xa4)},
                                                 {Propositions::kAcceptee, QColor(0x4e, 0x9a, 0x06)},
                                                 {Propositions::kRefusee, QColor(0xcc, 0x00, 0x00)},
                                                 {Propositions::kFacturee, QColor(0x75, 0x50, 0x7b)}};
        const QChar initiale = Propositions::imageStatut(statut).at(0);
        QIcon icone;
        for (const int taille : {16, 32})
            icone.addPixmap(disque(couleurs.value(statut), initiale, taille));
        icones.insert(statut, icone);
    }
    return icones.value(statut);
}

int ModelePropositions::idDeLaRangee(int rangee) const
{
    return rangee < 0 || rangee >= table().size() ? 0 : table().valeur(rangee, QStringLiteral("Id")).toInt();
}

int ModelePropositions::statutDeLaRangee(int rangee) const
{
    return rangee < 0 || rangee >= table().size() ? 0 : table().valeur(rangee, QStringLiteral("Statut")).toInt();
}

int ModelePropositions::rangeeDeLId(int id) const
{
    for (int r = 0; r < table().size(); ++r)
        if (idDeLaRangee(r) == id)
            return r;
    return -1;
}

QVariant ModelePropositions::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.column() != Statut)
        return ModeleTableau::data(index, role);
    const int statut = statutDeLaRangee(index.row());
    switch (role) {
    case Qt::DecorationRole:
        return iconeStatut(statut);
    case Qt::ToolTipRole:
        return Propositions::libelleStatut(statut);
    case RoleTri:
        return Propositions::indexDuStatut(statut);
    default:
        return {};
    }
}

} // namespace corvane::app
