#pragma once

namespace corvane {
class Dialogues;
class Reglages;
} // namespace corvane

namespace corvane::app {

// What every screen needs besides the open document: the user's settings and the
// seam through which it asks questions and shows alerts.
struct Environnement
{
    Reglages& reglages;
    Dialogues& dialogues;
};

} // namespace corvane::app
