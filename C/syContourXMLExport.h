// KvContourXMLExport: writes contours as XML, as a file of their own or into a document that a host is building.
#pragma once

#include "C/syContour.h"
#include "contracts/basics/KvString.h"
#include "contracts/xml/XML_PARSER.h"

namespace KvN
{

// Results: 1 on success, 0 on a failure. While exceptions are in use a failure throws a `KvException*` instead, which
// the catcher deletes. The cursor then stays where the failure found it.
// Coordinates and line widths are written with 3 digits behind the point, angles with 5.
class KvContourXMLExport
{
public:
    // Where contours go, seen from the cursor's node. The document has them in list order in every mode.
    enum eWriteMode : int
    {
        eWriteAfter = 0,
        eWriteBefore = 1,
        eWriteLastChild = 2,
        eWriteFirstChild = 3
    };

    explicit KvContourXMLExport(int useExceptions = 1);
    virtual ~KvContourXMLExport();

    // Writes a whole file, whose former content is replaced if the saving succeeds. Whether it did is not told.
    int Execute(const KvString& fileName, const KvTList<KvContour>& contours);
    // Writes into a document. The cursor ends on the contour added last, or on its parent if `goToParent` is non-zero
    // and the mode is a child mode. An empty list changes nothing. Fails where the document would get a second root.
    int Execute(XML_PARSER& parser, const KvTList<KvContour>& contours, eWriteMode mode, int goToParent);
    int Execute(XML_PARSER& parser, const KvContour& contour, eWriteMode mode, int goToParent);
    // Writes what stands below a `Contour` node, the cursor's node. Fails for a rectangle of more than 4 points; no
    // other count is checked.
    int WriteContents(XML_PARSER& parser, const KvContour& contour);

    void SetUseExceptions(int use) { UseExceptions = use; }

private:
    int Fail(unsigned short textId, unsigned long line) const;
    int WriteNode(XML_PARSER& parser, const KvContour& contour);
    int WriteNext(XML_PARSER& parser, const KvContour& contour, eWriteMode mode, int& result);

    int UseExceptions;
};

} // namespace KvN
