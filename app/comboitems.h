#pragma once

class QComboBox;

/// Gives every entry of \a combo a square of \a side pixels in its popup, which makes the rows that high.
void setitemsizes(QComboBox* combo, int side);
