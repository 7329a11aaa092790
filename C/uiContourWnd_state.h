// The editor's snapshot for a host's undo manager.
#pragma once

#include "C/syContour.h"
#include "contracts/undo.h"

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

class KvContourWnd;

namespace KvN
{

// Copies of an editor's contours as its snapshots keep them: never changed, and made once for as long as the contour
// itself stays the same. A long history thus costs what was changed, not what there is.
class KvContourKeeper
{
public:
    // The points apart from the rest, since a row of them takes a third of the memory of a list.
    struct Copy
    {
        explicit Copy(const KvContour& contour);
        KvContour Contour() const;

        KvContour record;
        std::vector<KvVec2d> points;
    };
    using Kept = std::shared_ptr<const Copy>;

    // A copy that equals the contour in every field, to the bit: the last one made for its ID if that still does.
    Kept Keep(const KvContour& contour);

private:
    std::unordered_map<std::int32_t, std::weak_ptr<const Copy>> known;
};

// Holds copies of an editor's contours, whole, and nothing else of it: no selection, tool, figure or markers. The
// editor is not owned and must be there whenever the state is read or written.
class KvContourWndState : public KvState
{
public:
    // Empty until `Read`.
    explicit KvContourWndState(KvContourWnd* contourWnd);
    // A state that nobody refers to yet, with the same editor and contours.
    KvContourWndState(const KvContourWndState& other) = default;
    // Takes over the reference count too, which is required.
    KvContourWndState& operator=(const KvContourWndState& other) = default;

    // Copies the editor's contours; without memory for all of them the snapshot is left empty.
    void Read() override;
    // Replaces the editor's contours by new copies, clears its selection and figure, and tells its host by a contour
    // added that is null.
    void Write() override;
    KvState* Clone() override;

    KvContourWnd* GetContourWnd() const { return m_pContourWnd; }

private:
    KvContourWnd* m_pContourWnd;
    std::vector<KvContourKeeper::Kept> m_Contours; // by ascending ID
};

} // namespace KvN
