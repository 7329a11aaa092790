// The handle table. A handle is a slot and the generation of its occupant, so that a handle of something deleted is
// told from one of its successor. Lookups hand out shared ownership: what a call works on lives until it returns.
#pragma once

#include "platform/gdi/gdi_constants.h"

#include <memory>

namespace kv::gdi
{

struct Object
{
    explicit Object(int kindOf) : kind(kindOf) {}
    virtual ~Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    const int kind; // OBJ_...
};

// Null and ERROR_NOT_ENOUGH_MEMORY if the table is full. Stock objects outlive every attempt to delete them.
HANDLE addObject(std::shared_ptr<Object> object, bool stock = false);
std::shared_ptr<Object> findObject(HANDLE handle); // null if there is none; sets no error
bool isStock(HANDLE handle);

// Forgets the object, or dooms it while it is selected: then the last release forgets it.
bool removeObject(HANDLE handle);
void retainSelection(HANDLE handle);
void releaseSelection(HANDLE handle);

// The object behind a handle if it is of type T; else null and ERROR_INVALID_HANDLE.
void failWith(DWORD error);
template <class T>
std::shared_ptr<T> find(HANDLE handle)
{
    std::shared_ptr<Object> object = findObject(handle);
    if (object && T::accepts(object->kind))
        return std::static_pointer_cast<T>(std::move(object));
    failWith(ERROR_INVALID_HANDLE);
    return nullptr;
}

} // namespace kv::gdi
