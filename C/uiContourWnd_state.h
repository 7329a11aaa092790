// The editor's snapshot for a host's undo manager.
#pragma once

#include "C/syContour.h"
#include "contracts/undo.h"

class KvContourWnd;

namespace KvN
{

// Holds deep copies of an editor's contours, whole, and nothing else of it: no selection, tool, figure or markers. The
// editor is not owned and must be there whenever the state is read or written.
class KvContourWndState : public KvState
{
public:
    // Empty until `Read`.
    explicit KvContourWndState(KvContourWnd* contourWnd);
    // A state that nobody refers to yet, with the same editor and copies of the contours.
    KvContourWndState(const KvContourWndState& other);
    // Takes over the reference count too, which is required.
    KvContourWndState& operator=(const KvContourWndState& other);

    // Copies the editor's contours; without memory for all of them the snapshot is left empty.
    void Read() override;
    // Replaces the editor's contours by new copies, clears its selection and figure, and tells its host by a contour
    // added that is null.
    void Write() override;
    KvState* Clone() override;

    KvContourWnd* GetContourWnd() const { return m_pContourWnd; }

private:
    KvContourWnd* m_pContourWnd;
    KvTPList<KvContour> m_Contours;
};

} // namespace KvN
