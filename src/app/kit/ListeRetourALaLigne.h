#pragma once

class QListView;

namespace corvane::app {

// Makes a list's long lines wrap at the list's width instead of running off its side:
// each row is as tall as its text needs, and the rows follow the list when it is resized.
void retourALaLigne(QListView* liste);

} // namespace corvane::app
