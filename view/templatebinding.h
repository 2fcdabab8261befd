#pragma once

#include "charttemplate.h"

#include <QStringList>

namespace OrdaneView {

class ChartSession;

// A chart session's set-up as a template, and a template applied to a session. Pane heights
// are the screen's business: currentTemplate() leaves `splitter` empty and applyTemplate()
// ignores it.

// The frame, zoom, background, chart type and look, the indicators over the prices and the
// panes with their indicators and parameters.
ChartTemplate currentTemplate(const ChartSession &session);

// Replaces the session's set-up with the template's: the panes and the indicators over the
// prices go; the background (kept readable, see ViewColors::onBackground), 3D flag, colouring,
// chart type, zoom and frame are set; the indicators are created with the template's
// parameters, in file order, each pane's first known one as its master. Returns the names
// that no indicator has, in file order; they are left out, and so is a pane left without
// any.
QStringList applyTemplate(ChartSession &session, const ChartTemplate &t);

} // namespace OrdaneView
