#include "bullwindow.h"

namespace OrdaneBrowser {

BullWindow::BullWindow(QWidget *parent)
    : ObserverWindow(Kind::Bulls, parent)
{}

} // namespace OrdaneBrowser
