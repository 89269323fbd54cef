#pragma once

#include <QTest>

namespace corvane::test {

// One row of a data table written as one call, so that it keeps to one line:
// cas("name", a, b, c) is QTest::newRow("name") << a << b << c.
template <typename... Valeurs>
void cas(const char* nom, Valeurs... valeurs)
{
    (QTest::newRow(nom) << ... << valeurs);
}

} // namespace corvane::test
