// The root of the class layer: objects that know their class by name and can be made from it.
#pragma once

class CObject;

// One record a class: its name, how to make an instance (null: it can't), and the record of its base.
struct CRuntimeClass
{
    const char* m_lpszClassName;
    CObject* (*m_pfnCreateObject)();
    const CRuntimeClass* m_pBaseClass;

    // A new instance owned by the caller; null for a class that can't be made by name.
    CObject* CreateObject() const { return m_pfnCreateObject ? m_pfnCreateObject() : nullptr; }
    bool IsDerivedFrom(const CRuntimeClass* base) const;
};

class CObject
{
public:
    virtual ~CObject() = default;
    virtual CRuntimeClass* GetRuntimeClass() const { return &classCObject; }
    bool IsKindOf(const CRuntimeClass* runtimeClass) const { return GetRuntimeClass()->IsDerivedFrom(runtimeClass); }

    static CRuntimeClass classCObject;

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

// The macros of the platform by which a class takes part in run-time class information.
#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name)                                                                                    \
public:                                                                                                                \
    static CRuntimeClass class##class_name;                                                                            \
    CRuntimeClass* GetRuntimeClass() const override                                                                    \
    {                                                                                                                  \
        return &class##class_name;                                                                                     \
    }

#define DECLARE_DYNCREATE(class_name)                                                                                  \
    DECLARE_DYNAMIC(class_name)                                                                                        \
    static CObject* CreateObject();

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                                 \
    CRuntimeClass class_name::class##class_name = {#class_name, nullptr, RUNTIME_CLASS(base_class_name)};

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                               \
    CObject* class_name::CreateObject()                                                                                \
    {                                                                                                                  \
        return new class_name;                                                                                         \
    }                                                                                                                  \
    CRuntimeClass class_name::class##class_name = {#class_name, &class_name::CreateObject,                             \
                                                   RUNTIME_CLASS(base_class_name)};
