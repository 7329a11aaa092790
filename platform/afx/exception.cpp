// Exceptions of the class layer.
#include "platform/afx/exception.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CResourceException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CException)
IMPLEMENT_DYNAMIC(CUserException, CException)

int CException::GetErrorMessage(wchar_t* error, unsigned maxError, unsigned* helpContext) const
{
    if (helpContext)
        *helpContext = 0;
    if (error && maxError > 0)
        *error = L'\0';
    return 0;
}

int CException::CopyMessage(const CStringT& text, wchar_t* error, unsigned maxError)
{
    if (!error || maxError == 0)
        return 0;
    const std::wstring wide = text.Wide();
    const size_t length = std::min<size_t>(wide.size(), maxError - 1);
    std::copy_n(wide.begin(), length, error);
    error[length] = L'\0';
    return length > 0;
}

int CResourceException::GetErrorMessage(wchar_t* error, unsigned maxError, unsigned* helpContext) const
{
    if (helpContext)
        *helpContext = 0;
    return CopyMessage(message, error, maxError);
}

void AfxThrowResourceException(const CStringT& what)
{
    throw new CResourceException(what);
}
void AfxThrowUserException()
{
    throw new CUserException;
}
