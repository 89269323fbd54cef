#pragma once

#include "unemployment/TableDatee.h"

namespace corvane {

// The hourly minimum wage up to 2015, shared by both lookup families; they part from 2016 on.
inline constexpr double smicHoraireAvant2005 = 7.61;

inline std::vector<LigneDatee> smicHoraireJusqua2015(std::initializer_list<LigneDatee> suite)
{
    std::vector<LigneDatee> lignes{
        {QDate(2005, 7, 1), 8.03},  {QDate(2006, 7, 1), 8.27}, {QDate(2007, 7, 1), 8.44}, {QDate(2008, 5, 1), 8.63},
        {QDate(2008, 7, 1), 8.71},  {QDate(2009, 7, 1), 8.82}, {QDate(2010, 1, 1), 8.86}, {QDate(2011, 1, 1), 9.00},
        {QDate(2011, 12, 1), 9.19}, {QDate(2012, 1, 1), 9.22}, {QDate(2012, 7, 1), 9.40}, {QDate(2013, 1, 1), 9.43},
        {QDate(2014, 1, 1), 9.53},  {QDate(2015, 1, 1), 9.61},
    };
    lignes.insert(lignes.end(), suite.begin(), suite.end());
    return lignes;
}

} // namespace corvane
