#pragma once

#include "TextScreen.h"

#include <string>

/// Pictures of what a test shows, kept as text in tests/screens/. Where they are to
/// change, scripts/screens writes them anew: then look at what git says of them.

/// Expects the screen to be that of tests/screens/NAME.txt, text and colours.
void expectScreen(const gw::TextScreen &screen, const std::string &name);

/// The same for any text of several lines.
void expectText(const std::string &text, const std::string &name);
