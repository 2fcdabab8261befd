#pragma once

#include "userindicator.h"

namespace OrdaneView {

// An expert: a script from the home folder's "UserExperts" that judges the series rather
// than drawing a line of it, typically colouring the bars it picks (drawBox) and writing its
// verdict into its label. It runs exactly like a script indicator and offers the same
// interface; label, max and min are its properties.
class UserExpert : public UserIndicator
{
    Q_OBJECT

public:
    using UserIndicator::UserIndicator;
};

} // namespace OrdaneView
