#pragma once

#include "cellgrid.h"

#include <QStringList>

class User;

/// Makes the window look the same in every run. The list gets the keyboard, as a text cursor blinks; and the
/// mouse goes over the combo boxes \a combos, used before, and away again, as one may stay lit after its
/// popup has closed.
void calm(User& user, const QStringList& combos);

/// Saves a picture of the message box, once it is drawn with its focus and the mouse lights up nothing in it.
void picturebox(User& user, const QString& name);

/// Saves a picture of the part of the window that holds all of the widgets, as far as it lies above \a lower.
void pictureabove(User& user, const QString& name, const QString& lower, const QStringList& widgets);

/// Saves a picture of the controller grid from the cell \a first to the cell \a last, with what lies over it.
void picturecells(User& user, const QString& name, Cell first, Cell last);
