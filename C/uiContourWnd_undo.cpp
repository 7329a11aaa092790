// Snapshots of the editor's store, and the road to the host's undo manager.
#include "C/uiContourWnd.h"

#include <memory>
#include <new>

using namespace KvN;

namespace
{

// Replaces the target's contours by deep copies, all or none. Both lists order and free contours in the same way.
int CopyContours(const KvTPList<KvContour>& source, KvTPList<KvContour>& target)
{
    target.Clear();
    try
    {
        for (unsigned long i = 0; i < source.NumEntries(); ++i)
        {
            auto copy = std::make_unique<KvContour>(*source.GetEntry(i));
            if (!target.AddEntry(copy.get()))
                throw std::bad_alloc();
            copy.release();
        }
    }
    catch (const std::bad_alloc&)
    {
        target.Clear();
        return 0;
    }
    return 1;
}

void OwnContours(KvTPList<KvContour>& list)
{
    list.SetClearFunction(&KvContour::ClrFunc);
    list.SetCompareFunction(&KvContour::CmpFunc);
}

} // namespace

namespace KvN
{

KvContourWndState::KvContourWndState(KvContourWnd* contourWnd) : m_pContourWnd(contourWnd)
{
    OwnContours(m_Contours);
}

KvContourWndState::KvContourWndState(const KvContourWndState& other)
    : KvState(other), m_pContourWnd(other.m_pContourWnd)
{
    OwnContours(m_Contours);
    CopyContours(other.m_Contours, m_Contours);
}

KvContourWndState& KvContourWndState::operator=(const KvContourWndState& other)
{
    KvState::operator=(other);
    m_pContourWnd = other.m_pContourWnd;
    if (this != &other)
        CopyContours(other.m_Contours, m_Contours);
    return *this;
}

void KvContourWndState::Read()
{
    if (!m_pContourWnd || m_pContourWnd->GetContourList() == &m_Contours)
        return;
    CopyContours(*m_pContourWnd->GetContourList(), m_Contours);
}

void KvContourWndState::Write()
{
    if (!m_pContourWnd)
        return;
    m_pContourWnd->SetContourList(m_Contours);
    m_pContourWnd->m_SignalContourAdded.Emit(nullptr);
    if (::IsWindow(m_pContourWnd->GetSafeHwnd()))
    {
        m_pContourWnd->Invalidate(TRUE);
        m_pContourWnd->UpdateWindow();
    }
}

KvState* KvContourWndState::Clone()
{
    return new (std::nothrow) KvContourWndState(*this);
}

} // namespace KvN

void KvContourWnd::SaveUndoRedoState()
{
    if (!m_pUndoRedo)
        return;
    m_pUndoRedo->BeginUndoStep(CString());
    m_pUndoRedo->AddState(new (std::nothrow) KvContourWndState(this));
    m_pUndoRedo->EndUndoStep(CString());
}

int KvContourWnd::CanUndo() const
{
    return m_pUndoRedo && m_pUndoRedo->CanUndo();
}

int KvContourWnd::CanRedo() const
{
    return m_pUndoRedo && m_pUndoRedo->CanRedo();
}

void KvContourWnd::Undo()
{
    if (!CanUndo())
        return;
    m_pUndoRedo->Undo();
    m_SignalOperation.Emit(OperationUndo);
}

void KvContourWnd::Redo()
{
    if (!CanRedo())
        return;
    m_pUndoRedo->Redo();
    m_SignalOperation.Emit(OperationRedo);
}
