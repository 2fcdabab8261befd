#pragma once

#include <QMetaType>

#include <atomic>

namespace OrdaneData {

class Reader;

// Shared, reference-counted handle to a Reader; the type that travels in signals.
// A handle made from a fresh Reader owns it: the last copy to go deletes the Reader.
// Asking an empty handle for its Reader throws MTools::Error("Null handle").
// The count is atomic, so handles may be copied across threads; the Reader itself is
// a QObject and is used from the thread it lives in.
class ReaderH
{
public:
    ReaderH() = default;
    explicit ReaderH(Reader *fresh);
    ReaderH(const ReaderH &other);
    ReaderH(ReaderH &&other) noexcept;
    ReaderH &operator=(ReaderH other) noexcept;
    ~ReaderH();

    // Creates a new empty Reader (time frame 0) owned by the returned handle.
    static ReaderH create();

    bool isNull() const { return mBlock == nullptr; }
    int useCount() const;

    Reader *reader() const; // throws MTools::Error on an empty handle
    Reader *operator->() const { return reader(); }
    Reader &operator*() const { return *reader(); }

    bool operator==(const ReaderH &o) const { return mBlock == o.mBlock; }
    bool operator!=(const ReaderH &o) const { return mBlock != o.mBlock; }

private:
    struct Block
    {
        std::atomic<int> count;
        Reader *reader;
    };
    void release();

    Block *mBlock = nullptr;
};

} // namespace OrdaneData

Q_DECLARE_METATYPE(OrdaneData::ReaderH)
