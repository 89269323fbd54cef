#pragma once

#include "store/LectureListe.h"

#include <QHash>
#include <QMap>

namespace corvane {

class Contrats;

// The contract listing's rows as its statement yields them. Each column says where its
// value comes from, so that the Table's values and the cells a JSON writer reads in
// place are the same. After the last row the aggregates of the Contrats are set.
class LecteurContrats final : public LectureListe
{
public:
    LecteurContrats(Contrats& contrats, const QString& sql, bool colonnesEcran, const QMap<int, QString>& emplois,
                    const QString& tri);

    static const QStringList& clesListe(bool colonnesEcran);

    const QStringList& cles() const override { return clesListe(m_colonnesEcran); }
    bool suivante() override;
    QVariant valeur(int colonne) const override;
    Cellule cellule(int colonne) const override;

private:
    // Dates::versAffichage(Dates::depuisSQLite(t)) in m_date for a date of plain digits in
    // years 1000 to 9999; false for anything else, which takes the slow path.
    bool dateRapide(QByteArrayView stockee) const;
    Cellule texte(QByteArrayView octets) const;

    Contrats& m_contrats;
    Requete m_requete;
    bool m_colonnesEcran;
    QHash<int, QString> m_emplois;
    QHash<int, QByteArray> m_emploisUtf8;
    QString m_tri;
    bool m_fini = false;
    mutable char m_date[10] = {};
    mutable QByteArray m_tampon;
};

} // namespace corvane
