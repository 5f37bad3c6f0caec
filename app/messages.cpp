#include "messages.h"

#include "focusring.h"

QMessageBox::StandardButton showmessage(const QString& style, const QString& text,
                                        const QString& informativetext, QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton defaultbutton)
{
    QMessageBox box;
    box.setStyleSheet(style);
    // Names of shows and pages are shown as they are, also where they look like markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setInformativeText(informativetext);
    box.setStandardButtons(buttons);
    box.setDefaultButton(defaultbutton);
    new FocusRing(&box);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}
