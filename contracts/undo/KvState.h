// A snapshot of something that can be undone.
#pragma once

#include "contracts/undo/KvRefCounter.h"

namespace KvN
{

// It knows its subject. A new state is empty until the first `Read`.
class KvState : public KvRefCounter
{
public:
    // Copies the subject's present content into the snapshot.
    virtual void Read() = 0;
    // Puts the snapshot back into its subject. The snapshot keeps its content and can be written again.
    virtual void Write() = 0;
    // A new snapshot of the same subject with the same content, referred to by nobody; null without memory for it.
    virtual KvState* Clone() = 0;
};

} // namespace KvN
