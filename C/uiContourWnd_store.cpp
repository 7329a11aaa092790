// The editor's store: two orders over the same contours, identities, selection, and the lists of the host.
#include "C/uiContourWnd.h"

#include <cmath>
#include <limits>
#include <memory>
#include <new>

using namespace KvN;

namespace
{

// The contour of a list in which a scratch contour stands for the key; null if there is none.
KvContour* Find(const KvTPList<KvContour>& list, KvContour& key, unsigned long& index)
{
    void* found = nullptr;
    return list.FindBinary(&key, &index, &found) ? static_cast<KvContour*>(found) : nullptr;
}

KvContour* EntryAt(const KvTPList<KvContour>& list, long index)
{
    return index < 0 ? nullptr : list.GetEntry(static_cast<unsigned long>(index));
}

std::unique_ptr<KvContour> TransformedCopy(const KvContour& contour, const KvVec2d& translation, double angle)
{
    auto copy = std::make_unique<KvContour>(contour);
    const auto counts = [](double x) { return std::abs(x) >= KvMath::Epsilon; };
    if (counts(angle) || counts(translation.x) || counts(translation.y))
        copy->TransformOriginBased(translation, angle);
    return copy;
}

} // namespace

KvContour* KvContourWnd::GetContour(long id) const
{
    if (id < std::numeric_limits<std::int32_t>::min() || id > std::numeric_limits<std::int32_t>::max())
        return nullptr;
    KvContour key;
    key.ID() = static_cast<std::int32_t>(id);
    unsigned long index = 0;
    return Find(m_Contours, key, index);
}

KvContour* KvContourWnd::GetContourByIndex(long index) const
{
    return EntryAt(m_Contours, index);
}

KvContour* KvContourWnd::GetContourSeqByIndex(long index) const
{
    return EntryAt(m_ContourSeq, index);
}

KvContour* KvContourWnd::SelectContour(long id)
{
    if (IsEditing())
        return nullptr;
    KvContour* contour = GetContour(id);
    if (contour)
        m_SelectedID = id;
    SelectCursor();
    return contour;
}

void KvContourWnd::SetContourSelected(KvContour* contour)
{
    const bool same = contour ? contour->ID() == m_SelectedID : m_SelectedID < 0;
    const bool changed = !same || IsEditing();
    m_SelectedID = contour ? contour->ID() : -1;
    if (m_Interaction)
        m_SignalContourSelected.Emit(contour);
    else
        m_SignalClickNoInteraction.Emit(MousePosition());
    if (changed)
        Repaint();
    SelectCursor();
    m_SignalOperation.Emit(OperationSelect);
}

KvContour* KvContourWnd::SelectContourIfMatch(const Position& point)
{
    KvContour* contour = MatchObject(point);
    if (contour)
        m_SelectedID = contour->ID();
    return contour;
}

// `fill` appends the new contours by InsertCopy and answers whether all of them could be made. Without memory for one
// of them it stops there.
template <class Fill>
int KvContourWnd::ReplaceContours(Fill fill)
{
    DeleteFigure();
    m_SelectedID = -1;
    m_ContourSeq.Clear();
    m_Contours.Clear();
    try
    {
        if (!fill())
            return 0;
    }
    catch (const std::bad_alloc&)
    {
        return 0;
    }
    FillContourSeq();
    Repaint();
    return 1;
}

int KvContourWnd::InsertCopy(std::unique_ptr<KvContour> copy)
{
    unsigned long index = 0;
    if (Find(m_Contours, *copy, index))
        return 1; // the first contour of an ID stays
    if (!m_Contours.InsertEntry(index, copy.get()))
        return 0;
    copy.release();
    return 1;
}

int KvContourWnd::SetContourList(const ContourList& list)
{
    return ReplaceContours(
        [&]
        {
            for (unsigned long i = 0; i < list.NumEntries(); ++i)
            {
                const KvContour* contour = list.GetEntry(i);
                if (!contour || !InsertCopy(std::make_unique<KvContour>(*contour)))
                    return false;
            }
            return true;
        });
}

int KvContourWnd::SetContourList(const KvTList<KvContour>& list, const KvMatrix4& matrix)
{
    const double angle = std::asin(matrix[1]);
    const KvVec2d translation(matrix[3], matrix[7]);
    return ReplaceContours(
        [&]
        {
            for (auto* node = list.head; node; node = node->next)
            {
                if (!InsertCopy(TransformedCopy(node->value, translation, angle)))
                    return false;
            }
            return true;
        });
}

void KvContourWnd::Sort()
{
    m_Contours.Sort();
    FillContourSeq();
}

void KvContourWnd::FillContourSeq()
{
    m_ContourSeq.Clear();
    m_Contours.DuplicateList(m_ContourSeq);
    m_ContourSeq.Sort();
}

long KvContourWnd::GetNextContourID() const
{
    const unsigned long count = m_Contours.NumEntries();
    if (count == 0)
        return 0;
    unsigned long first = 0;
    while (first < count && m_Contours.GetEntry(first)->ID() == -1)
        ++first;
    if (first < count && m_Contours.GetEntry(first)->ID() > 0)
        return 0;
    long id = m_Contours.GetEntry(0)->ID();
    for (unsigned long i = 1; i < count; ++i)
    {
        const long next = m_Contours.GetEntry(i)->ID();
        if (next - id > 1)
            return id + 1;
        id = next;
    }
    return id + 1;
}

long KvContourWnd::GetNextContourSequenceID() const
{
    const unsigned long count = m_ContourSeq.NumEntries();
    return count == 0 ? 0 : static_cast<long>(m_ContourSeq.GetEntry(count - 1)->SequenceID()) + 1;
}

KvContour* KvContourWnd::InsertContourPtr(KvContour* contour)
{
    unsigned long index = 0;
    if (Find(m_Contours, *contour, index) || !m_Contours.InsertEntry(index, contour))
        return nullptr;
    if (KvContour* other = Find(m_ContourSeq, *contour, index))
    {
        if (other == contour)
            return nullptr;
        m_ContourSeq.RemoveEntry(index);
    }
    m_ContourSeq.InsertEntry(index, contour);
    return contour;
}

void KvContourWnd::DeleteContour(const KvContour& contour)
{
    KvContour key;
    key.ID() = contour.ID();
    unsigned long index = 0;
    KvContour* stored = Find(m_Contours, key, index);
    if (!stored)
        return;
    RemoveFromSequence(*stored);
    m_Contours.RemoveEntry(index);
    KvContour::ClrFunc(stored);
}

// Of several contours with one sequence number only this one may go: the list owns nothing and must not keep a pointer
// to a contour that is freed.
void KvContourWnd::RemoveFromSequence(KvContour& contour)
{
    unsigned long index = 0;
    if (Find(m_ContourSeq, contour, index) == &contour)
    {
        m_ContourSeq.RemoveEntry(index);
        return;
    }
    for (index = 0; index < m_ContourSeq.NumEntries(); ++index)
    {
        if (m_ContourSeq.GetEntry(index) == &contour)
        {
            m_ContourSeq.RemoveEntry(index);
            return;
        }
    }
}
