#pragma once

namespace touchpanel {

/// Gives every window the program's icon, and desktops the means to find its entry in their menus. Needs a
/// QGuiApplication without windows.
void identifyProgram();

}  // namespace touchpanel
