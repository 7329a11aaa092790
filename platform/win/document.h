// CDocument: what views look at. It knows its views; the last one to leave deletes it.
#pragma once

#include "platform/win/cmdtarget.h"

#include <vector>

class CArchive;
class CView;

class CDocument : public CCmdTarget
{
    DECLARE_DYNAMIC(CDocument)

public:
    BOOL m_bAutoDelete = TRUE; // goes with its last view

    CDocument() = default;
    ~CDocument() override;

    void AddView(CView* view);
    void RemoveView(CView* view);
    const std::vector<CView*>& Views() const { return views; }
    void UpdateAllViews(CView* sender, LPARAM hint = 0, CObject* hintObject = nullptr);
    const CString& GetTitle() const { return title; }
    virtual void SetTitle(const CString& newTitle) { title = newTitle; }
    virtual BOOL IsModified() { return modified; }
    virtual void SetModifiedFlag(BOOL on = TRUE) { modified = on; }
    virtual void DeleteContents() {}
    virtual BOOL OnNewDocument();
    virtual void OnCloseDocument();
    virtual void Serialize(CArchive&) {}

protected:
    virtual void OnChangedViewList();

private:
    std::vector<CView*> views;
    CString title;
    BOOL modified = FALSE;
};
