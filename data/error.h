#pragma once

#include <QString>

#include <exception>

namespace MTools {

// Raised for programming errors, such as dereferencing an empty series handle.
// User-level failures are never thrown; callers report them in message boxes.
class Error : public std::exception
{
public:
    explicit Error(QString text)
        : mText(std::move(text))
        , mUtf8(mText.toUtf8())
    {}

    const QString &text() const { return mText; }
    const char *what() const noexcept override { return mUtf8.constData(); }

private:
    QString mText;
    QByteArray mUtf8;
};

} // namespace MTools
