#include "drawobjectslayer.h"

#include "data/reader.h"
#include "drawingfile.h"
#include "figuregeometry.h"
#include "view/viewcanvas.h"

#include <QDebug>
#include <QPainter>

namespace OrdaneView {

DrawObjectsLayer::DrawObjectsLayer(ViewCanvas *view, QObject *parent)
    : Layer(view, parent)
{}

DrawObjectsLayer::~DrawObjectsLayer() = default;

DrawObject *DrawObjectsLayer::add(std::unique_ptr<DrawObject> object)
{
    DrawObject *figure = object.release();
    figure->setParent(this);
    connect(figure, &DrawObject::changed, this, &DrawObjectsLayer::changed);
    mObjects.append(figure);
    emit changed();
    return figure;
}

bool DrawObjectsLayer::remove(DrawObject *object)
{
    if (!mObjects.removeOne(object))
        return false;
    delete object;
    emit changed();
    return true;
}

void DrawObjectsLayer::clear()
{
    if (mObjects.isEmpty())
        return;
    qDeleteAll(mObjects);
    mObjects.clear();
    emit changed();
}

DrawObject *DrawObjectsLayer::selected() const
{
    for (DrawObject *object : mObjects)
        if (object->isSelected())
            return object;
    return nullptr;
}

void DrawObjectsLayer::select(DrawObject *object)
{
    for (DrawObject *o : qAsConst(mObjects))
        o->setSelected(o == object);
}

DrawObject *DrawObjectsLayer::objectAt(const QPointF &point, const AnchorMapping &mapping) const
{
    for (auto it = mObjects.crbegin(); it != mObjects.crend(); ++it)
        if (FigureGeometry::hitTest(**it, mapping, point))
            return *it;
    return nullptr;
}

void DrawObjectsLayer::setSymbol(const QString &symbol)
{
    mSymbol = symbol;
    std::vector<std::unique_ptr<DrawObject>> loaded;
    QString error;
    int skipped = 0;
    if (!DrawingFile::load(symbol, &loaded, &error, &skipped))
        qWarning().noquote() << tr("Drawings ignored: %1").arg(error);
    else if (skipped > 0)
        qWarning().noquote() << tr("%1 figure(s) of %2 could not be read and were left out")
                                    .arg(skipped)
                                    .arg(DrawingFile::pathFor(symbol));
    QSignalBlocker blocker(this);
    clear();
    for (auto &object : loaded)
        add(std::move(object));
    blocker.unblock();
    emit changed();
}

bool DrawObjectsLayer::store(QString *error) const
{
    if (mSymbol.isEmpty())
        return true;
    QString why;
    if (DrawingFile::save(mSymbol, mObjects, &why))
        return true;
    qWarning().noquote() << tr("Drawings not saved: %1").arg(why);
    if (error)
        *error = why;
    return false;
}

void DrawObjectsLayer::setReader(OrdaneData::ReaderH reader)
{
    if (!this->reader().isNull())
        disconnect(this->reader().reader(), nullptr, this, nullptr);
    Layer::setReader(reader);
    if (!reader.isNull())
        connect(reader.reader(), &OrdaneData::Reader::dataChanged, this,
                &DrawObjectsLayer::followSymbol);
    followSymbol();
}

void DrawObjectsLayer::followSymbol()
{
    if (!reader().isNull() && reader()->symbol() != mSymbol)
        setSymbol(reader()->symbol());
}

void DrawObjectsLayer::draw(QPainter &painter, int plotWidth)
{
    if (series().isEmpty() || mObjects.isEmpty() || !view())
        return;
    const AnchorMapping mapping = AnchorMapping::of(*view());
    painter.save();
    painter.setClipRect(QRect(0, 0, plotWidth, height()), Qt::IntersectClip);
    for (const DrawObject *object : qAsConst(mObjects))
        object->draw(painter, mapping);
    painter.restore();
}

} // namespace OrdaneView
