// An object that lives as long as somebody refers to it.
#pragma once

namespace KvN
{

// The count starts at 0: whoever keeps the object calls `Ref`, and the `Unref` that brings the count back to 0 deletes
// it. A copy is a new object that nobody refers to yet; an assignment takes over the source's count too.
class KvRefCounter
{
public:
    virtual ~KvRefCounter() = default;
    virtual void Ref() { ++references; }
    virtual void Unref()
    {
        if (--references <= 0)
            delete this;
    }

    int References() const { return references; }

protected:
    KvRefCounter() = default;
    KvRefCounter(const KvRefCounter&) {}
    KvRefCounter& operator=(const KvRefCounter&) = default;

private:
    int references = 0;
};

} // namespace KvN
