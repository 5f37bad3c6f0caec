#pragma once

/// Tells the application object, before or after it is made, which version this is and which menu entry
/// belongs to it: a desktop that shows no icon of a window's own takes that entry's.
void nameapplication();

/// Has the window drawn at the scale of the screen, by 1.25 as well as by 2. To be called before there is an
/// application object, by everything that shows the window as the program does.
void followscreenscale();
