#include "comboitems.h"

#include <QComboBox>

void setitemsizes(QComboBox* combo, int side)
{
    for (int item = 0; item < combo->count(); ++item)
        combo->setItemData(item, QSize(side, side), Qt::SizeHintRole);
}
