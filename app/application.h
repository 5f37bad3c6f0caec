#pragma once

/// Tells the application object, before or after it is made, which version this is and which menu entry
/// belongs to it: a desktop that shows no icon of a window's own takes that entry's.
void nameapplication();
