#include "readerh.h"

#include "error.h"
#include "reader.h"

#include <utility>

namespace OrdaneData {

namespace {
// Queued connections need the type registered under the name used in signatures.
const int readerHTypeId = qRegisterMetaType<ReaderH>("OrdaneData::ReaderH");
} // namespace

ReaderH::ReaderH(Reader *fresh)
{
    Q_UNUSED(readerHTypeId)
    if (fresh)
        mBlock = new Block{{1}, fresh};
}

ReaderH::ReaderH(const ReaderH &other)
    : mBlock(other.mBlock)
{
    if (mBlock)
        mBlock->count.fetch_add(1, std::memory_order_relaxed);
}

ReaderH::ReaderH(ReaderH &&other) noexcept
    : mBlock(std::exchange(other.mBlock, nullptr))
{}

ReaderH &ReaderH::operator=(ReaderH other) noexcept
{
    std::swap(mBlock, other.mBlock);
    return *this;
}

ReaderH::~ReaderH()
{
    release();
}

ReaderH ReaderH::create()
{
    return ReaderH(new Reader);
}

int ReaderH::useCount() const
{
    return mBlock ? mBlock->count.load(std::memory_order_relaxed) : 0;
}

Reader *ReaderH::reader() const
{
    if (!mBlock)
        throw MTools::Error(QStringLiteral("Null handle"));
    return mBlock->reader;
}

void ReaderH::release()
{
    if (mBlock && mBlock->count.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        delete mBlock->reader;
        delete mBlock;
    }
    mBlock = nullptr;
}

} // namespace OrdaneData
