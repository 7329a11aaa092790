// The exception family of the system: allocated, thrown as pointers, deleted by whoever catches them.
#pragma once

#include "contracts/basics/KvString.h"
#include "platform/afx/exception.h"

namespace KvN
{

// What all exceptions of the companion libraries share beside the framework's base.
class KvCompatibleException
{
public:
    virtual ~KvCompatibleException() = default;
};

// A failure of the system's own logic: where it was raised, and a message for a person.
class KvException : public CException, public KvCompatibleException
{
    DECLARE_DYNAMIC(KvException)

public:
    // `file` names the source (such as C/syContourXMLExport), `line` is fixed by the failure, not by the compiler.
    KvException(const KvString& file, unsigned long line, const KvString& message);
    // Takes over the message of a framework exception, which stays the caller's to delete.
    explicit KvException(CException& other);

    int GetErrorMessage(wchar_t* error, unsigned maxError, unsigned* helpContext = nullptr) const override;
    KvString GetMessageW() const;
    const KvString& File() const { return sourceFile; }
    unsigned long Line() const { return sourceLine; }

protected:
    KvException(const KvString& file, unsigned long line);

    // Makes the text that `GetMessageW` gives.
    virtual KvString BuildMessage() const;

private:
    KvString sourceFile;
    unsigned long sourceLine = 0;
    KvString text;
};

class KvRuntimeException : public KvException
{
    DECLARE_DYNAMIC(KvRuntimeException)

public:
    using KvException::KvException;

protected:
    KvRuntimeException(const KvString& file, unsigned long line) : KvException(file, line) {}
};

// A drawing call of the platform failed.
class KvGDIException : public KvRuntimeException
{
    DECLARE_DYNAMIC(KvGDIException)

public:
    // `function` is the name of the call, `lastError` what GetLastError() gave after it.
    KvGDIException(const KvString& file, unsigned long line, const KvString& function, unsigned long lastError);

    const KvString& Function() const { return functionName; }
    unsigned long LastError() const { return errorCode; }

protected:
    KvString BuildMessage() const override;

private:
    KvString functionName;
    unsigned long errorCode;
};

// A key of a configuration file holds a value of the wrong form.
class KvReadKeywordException : public KvRuntimeException
{
    DECLARE_DYNAMIC(KvReadKeywordException)

public:
    KvReadKeywordException(const KvString& file, unsigned long line, const KvString& key, const KvString& group,
                           const KvString& configFile);

    const KvString& Key() const { return keyName; }
    const KvString& Group() const { return groupName; }
    const KvString& ConfigFile() const { return fileName; }

protected:
    KvString BuildMessage() const override;

private:
    KvString keyName;
    KvString groupName;
    KvString fileName;
};

} // namespace KvN
