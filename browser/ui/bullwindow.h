#pragma once

#include "observerwindow.h"

namespace OrdaneBrowser {

// The observer list of bullish picks: an ObserverWindow whose items carry the bull's head
// and whose symbols persist in the setting "Observer/Bulls".
class BullWindow : public ObserverWindow
{
    Q_OBJECT

public:
    explicit BullWindow(QWidget *parent = nullptr);
};

} // namespace OrdaneBrowser
