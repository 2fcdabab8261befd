#pragma once

#include "drawobject.h"

#include <QList>
#include <QString>

#include <memory>
#include <vector>

class QIODevice;

namespace OrdaneView {

// The figures drawn on one symbol's chart, kept in the home folder as
// "Drawings/SYMBOL.json" (see docs/drawing.md for the format):
//
//   {"version": 1, "figures": [{"type": "line", "color": "#ffb000", "width": 1,
//     "style": "solid", "anchors": [{"date": "2012-09-03", "price": 30.5}, {...}]}]}
//
// Types are "line", "ray", "arc", "ellipse", "rect" and "triangle"; styles "solid", "dash",
// "dot", "dashdot" and "dashdotdot". Figures are written in stacking order, bottom first.
namespace DrawingFile {

// The folder of the drawings, "Drawings" in the home folder; empty while no home is set.
QString folder();
// The file of a symbol's figures; characters that would leave the folder ('/', '\\', ':')
// become '_'. Empty for an empty symbol or without a home.
QString pathFor(const QString &symbol);

// Writes the figures (selection aside); false with *error when the device refuses.
bool write(QIODevice *device, const QList<DrawObject *> &objects, QString *error = nullptr);
// Reads figures, appending them to *objects. Returns false with *error when the text is no
// drawing file (not JSON, or no list of figures); then *objects is untouched. A figure whose
// type or anchors do not read is left out and counted in *skipped; a colour, width or style
// that does not read takes the default.
bool read(QIODevice *device, std::vector<std::unique_ptr<DrawObject>> *objects,
          QString *error = nullptr, int *skipped = nullptr);

// Writes a symbol's figures through a save file, so that a failed write leaves the old file
// whole; no figures removes the file. False with *error on failure or when there is no file
// to write (no symbol, no home).
bool save(const QString &symbol, const QList<DrawObject *> &objects, QString *error = nullptr);
// Reads a symbol's figures into *objects. A missing file is no figures and no failure; a file
// that cannot be opened or read gives false with *error (naming the file) and no figures.
bool load(const QString &symbol, std::vector<std::unique_ptr<DrawObject>> *objects,
          QString *error = nullptr, int *skipped = nullptr);

} // namespace DrawingFile
} // namespace OrdaneView
