#pragma once

#include <QString>

class QModelIndex;
class QWidget;

/// What assistive technology (a screen reader, say) is told about the item \a index of any of the three
/// tables: of a pad its label and the Live Button that it holds, then the text that it shows when that is
/// another one; else the text of the item.
QString accessibletext(const QModelIndex& index);

/// Makes the program's tables tell assistive technology `accessibletext` of their items, and which items
/// carry a check mark; the toolkit would ask the models, whose data serve the views alone. Must come before
/// the first table is made; any further call changes nothing.
void installaccessibility();

/// Calls the list that each combo box below \a parent pops up what the combo box is called.
void namepopups(const QWidget* parent);
