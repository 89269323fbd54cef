#include "store/LectureListe.h"

namespace corvane {

Table lireLaListe(LectureListe& lecture)
{
    Table table{lecture.cles(), {}};
    const int colonnes = int(table.cles.size());
    while (lecture.suivante()) {
        QVariantList valeurs;
        valeurs.reserve(colonnes);
        for (int i = 0; i < colonnes; ++i)
            valeurs << lecture.valeur(i);
        table.rangees << valeurs;
    }
    return table;
}

} // namespace corvane
