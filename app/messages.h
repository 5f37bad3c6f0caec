#pragma once

#include <QMessageBox>
#include <QString>

/// Shows a modal message box without parent in the style sheet \a style and gives the button that was
/// pressed; Escape and the box's close button answer as Cancel, or No where there is no Cancel.
QMessageBox::StandardButton showmessage(const QString& style, const QString& text,
                                        const QString& informativetext = QString(),
                                        QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                                        QMessageBox::StandardButton defaultbutton = QMessageBox::Ok);
