// Messages of the exception family.
#include "contracts/basics/KvException.h"

#include "contracts/basics/KvLibrary.h"
#include "resources/resource.h"

namespace KvN
{

IMPLEMENT_DYNAMIC(KvException, CException)
IMPLEMENT_DYNAMIC(KvRuntimeException, KvException)
IMPLEMENT_DYNAMIC(KvGDIException, KvRuntimeException)
IMPLEMENT_DYNAMIC(KvReadKeywordException, KvRuntimeException)

namespace
{
// The framework hands its texts out through a buffer of the caller's.
KvString MessageOf(CException& other)
{
    constexpr unsigned longest = 1024;
    wchar_t buffer[longest] = {};
    other.GetErrorMessage(buffer, longest);
    return KvString(buffer);
}

// A message of the resources with texts and numbers filled in.
template <class... Arguments>
KvString Filled(unsigned short id, Arguments... arguments)
{
    KvString text;
    text.SPrintf(KvString(KvResId(id, GetResourceModule())).Text().Wide().c_str(), arguments...);
    return text;
}
} // namespace

KvException::KvException(const KvString& file, unsigned long line) : sourceFile(file), sourceLine(line) {}

KvException::KvException(const KvString& file, unsigned long line, const KvString& message)
    : sourceFile(file), sourceLine(line), text(message)
{
}

KvException::KvException(CException& other) : text(MessageOf(other)) {}

int KvException::GetErrorMessage(wchar_t* error, unsigned maxError, unsigned* helpContext) const
{
    if (helpContext)
        *helpContext = 0;
    return CopyMessage(GetMessageW().Text(), error, maxError);
}

KvString KvException::GetMessageW() const
{
    return BuildMessage();
}

KvString KvException::BuildMessage() const
{
    return text;
}

KvGDIException::KvGDIException(const KvString& file, unsigned long line, const KvString& function,
                               unsigned long lastError)
    : KvRuntimeException(file, line), functionName(function), errorCode(lastError)
{
}

KvString KvGDIException::BuildMessage() const
{
    return Filled(IDS_GDI_FAILED, functionName.Text().Wide().c_str(), errorCode);
}

KvReadKeywordException::KvReadKeywordException(const KvString& file, unsigned long line, const KvString& key,
                                               const KvString& group, const KvString& configFile)
    : KvRuntimeException(file, line), keyName(key), groupName(group), fileName(configFile)
{
}

KvString KvReadKeywordException::BuildMessage() const
{
    return Filled(IDS_READ_KEYWORD, keyName.Text().Wide().c_str(), groupName.Text().Wide().c_str(),
                  fileName.Text().Wide().c_str());
}

} // namespace KvN
