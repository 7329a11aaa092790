// Snapshots of the editor's store, and the road to the host's undo manager.
#include "C/uiContourWnd.h"

#include <algorithm>
#include <bit>
#include <memory>
#include <new>

using namespace KvN;

namespace
{

bool SameBits(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool SamePoints(const std::vector<KvVec2d>& kept, const KvTList<KvVec2d>& points)
{
    if (kept.size() != static_cast<size_t>(points.count))
        return false;
    auto* node = points.head;
    return std::all_of(kept.begin(), kept.end(),
                       [&](const KvVec2d& p)
                       {
                           const KvVec2d& q = node->value;
                           node = node->next;
                           return SameBits(p.x, q.x) && SameBits(p.y, q.y);
                       });
}

bool IsSame(const KvContourKeeper::Copy& copy, const KvContour& b)
{
    const KvContour& a = copy.record;
    return a.ID() == b.ID() && a.SequenceID() == b.SequenceID() && a.Exclude() == b.Exclude() &&
           a.ReadOnly() == b.ReadOnly() && a.ContourType() == b.ContourType() && a.Color() == b.Color() &&
           SameBits(a.LineWidth(), b.LineWidth()) && SameBits(a.Angle(), b.Angle()) &&
           a.Description() == b.Description() && SamePoints(copy.points, b.CurvePositions());
}

} // namespace

namespace KvN
{

KvContourKeeper::Copy::Copy(const KvContour& contour) : record(contour)
{
    points.reserve(static_cast<size_t>(record.CurvePositions().count));
    for (auto* node = record.CurvePositions().head; node; node = node->next)
        points.push_back(node->value);
    record.CurvePositions().Clear();
}

KvContour KvContourKeeper::Copy::Contour() const
{
    KvContour contour = record;
    for (const KvVec2d& point : points)
        contour.CurvePositions().AddTail(point);
    return contour;
}

KvContourKeeper::Kept KvContourKeeper::Keep(const KvContour& contour)
{
    std::weak_ptr<const Copy>& last = known[contour.ID()];
    if (Kept kept = last.lock(); kept && IsSame(*kept, contour))
        return kept;
    const Kept copy = std::make_shared<const Copy>(contour);
    last = copy;
    return copy;
}

KvContourWndState::KvContourWndState(KvContourWnd* contourWnd) : m_pContourWnd(contourWnd) {}

void KvContourWndState::Read()
{
    if (!m_pContourWnd)
        return;
    m_Contours.clear();
    try
    {
        const KvTPList<KvContour>& contours = *m_pContourWnd->GetContourList();
        m_Contours.reserve(contours.NumEntries());
        for (unsigned long i = 0; i < contours.NumEntries(); ++i)
            m_Contours.push_back(m_pContourWnd->m_Keeper.Keep(*contours.GetEntry(i)));
    }
    catch (const std::bad_alloc&)
    {
        m_Contours.clear();
    }
}

void KvContourWndState::Write()
{
    if (!m_pContourWnd)
        return;
    KvTPList<KvContour> list;
    list.SetClearFunction(&KvContour::ClrFunc);
    for (const KvContourKeeper::Kept& kept : m_Contours)
    {
        auto contour = std::make_unique<KvContour>(kept->Contour());
        if (list.AddEntry(contour.get()))
            contour.release();
    }
    m_pContourWnd->SetContourList(list);
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
