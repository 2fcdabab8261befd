#pragma once

#include "drawobject.h"
#include "view/layer.h"

#include <QList>
#include <QString>

#include <memory>

namespace OrdaneView {

// The figures drawn on a chart, as a layer of its canvas above the prices and the indicators
// over them. It draws each figure where the canvas's AnchorMapping puts it, clipped to the
// plot; without a series it draws nothing ("Null handle", caught by the canvas).
//
// The figures belong to the series' symbol: when the layer meets a series of another symbol
// (a new series, or the series reloaded as another symbol), the figures stored for that symbol
// in the home folder replace the shown ones (see DrawingFile). A stored file that cannot be
// read is ignored with a warning. Editors call store() when an edit is complete.
//
// Any change of the figures, their selection or their looks emits changed().
class DrawObjectsLayer : public Layer
{
    Q_OBJECT

public:
    explicit DrawObjectsLayer(ViewCanvas *view, QObject *parent = nullptr);
    ~DrawObjectsLayer() override;

    // The figures, bottom first. The layer owns them.
    const QList<DrawObject *> &objects() const { return mObjects; }
    // Puts the figure on top and returns it.
    DrawObject *add(std::unique_ptr<DrawObject> object);
    // Deletes the figure; false when the layer does not hold it.
    bool remove(DrawObject *object);
    void clear();

    // The selected figure, or nullptr. Selecting one clears the others; nullptr clears all.
    DrawObject *selected() const;
    void select(DrawObject *object);
    // The topmost figure on which `point` lies (FigureGeometry::hitTest), or nullptr.
    DrawObject *objectAt(const QPointF &point, const AnchorMapping &mapping) const;

    // The symbol whose figures these are ("" while none).
    QString symbol() const { return mSymbol; }
    // Replaces the figures by those stored for `symbol`.
    void setSymbol(const QString &symbol);
    // Writes the figures to the symbol's file; without a symbol there is nothing to write.
    // On failure warns and returns false with *error.
    bool store(QString *error = nullptr) const;

    void setReader(OrdaneData::ReaderH reader) override;
    void draw(QPainter &painter, int plotWidth) override;

signals:
    void changed();

private:
    void followSymbol();

    QList<DrawObject *> mObjects;
    QString mSymbol;
};

} // namespace OrdaneView
