// Exceptions of the class layer. They are allocated, thrown as pointers, and deleted by whoever catches them.
#pragma once

#include "platform/afx/cstring.h"
#include "platform/afx/object.h"

class CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    // Copies the message, cut to `maxError` characters with its terminator. 0 if there is none or no room for it.
    virtual int GetErrorMessage(wchar_t* error, unsigned maxError, unsigned* helpContext = nullptr) const;
    void Delete() { delete this; }

protected:
    CException() = default;

    // Copies `text` into a caller's buffer under the rules of GetErrorMessage.
    static int CopyMessage(const CStringT& text, wchar_t* error, unsigned maxError);
};

// An operation of the class layer failed; the message says which.
class CResourceException : public CException
{
    DECLARE_DYNAMIC(CResourceException)

public:
    explicit CResourceException(const CStringT& what) : message(what) {}
    int GetErrorMessage(wchar_t* error, unsigned maxError, unsigned* helpContext = nullptr) const override;

private:
    CStringT message;
};

class CMemoryException : public CException
{
    DECLARE_DYNAMIC(CMemoryException)
};

// Thrown to leave an operation after the user has already been told why.
class CUserException : public CException
{
    DECLARE_DYNAMIC(CUserException)
};

[[noreturn]] void AfxThrowResourceException(const CStringT& what);
[[noreturn]] void AfxThrowUserException();
