#pragma once

#include <QString>

/// The subjects of the benchmarks. Each prints its lines of the table; \a folder is an empty folder of its
/// own use, which stays behind with files in it.

/// Start to first paint, on every platform plug-in that can be had here. Must come before this process has
/// grown, thus before its QApplication: see starting.cpp.
void benchstarting();
/// The worst file that each reader accepts, in CPU time and memory. Must come early for the same reason.
void benchworst();
/// Loading shows of 200, 2,000 and 20,000 Live Buttons, and filtering their list by page. Needs a
/// QApplication.
void benchlisting(const QString& folder);
/// One work on a show of \a buttons Live Buttons, once, so that its instructions can be counted: "QSettings",
/// "readlightshow", "loadshowname" or "updatelist".
void countlisting(const QString& folder, const QString& name, int buttons);
/// Every action of a user on a show of 2,000 Live Buttons until it is painted, its growth to 20,000, and
/// loading a project. Needs a QApplication.
void benchacting(const QString& folder);
/// Exporting a full pads page.
void benchexporting(const QString& folder);
/// Reading the built-in layouts and mappings, and exporting controllers' mappings of up to 5,000 lines.
void benchmapping(const QString& folder);
