// KvContourXMLImport: reads contours from XML, from a file of their own or out of a document of a host.
#pragma once

#include "C/syContour.h"
#include "contracts/basics/KvString.h"
#include "contracts/xml/XML_PARSER.h"

namespace KvN
{

// Results: 1 on success, 0 on a failure. While exceptions are in use a failure throws a `KvException*` instead, which
// the catcher deletes. Two things are failures: a `ContourType` out of range, and a rectangle of more than 4 points.
// Whatever else is missing or no number is passed over and leaves its default: check `IsValid` of what was read.
class KvContourXMLImport
{
public:
    // How the first `Contour` is found, seen from the cursor's node.
    enum eReadMode : int
    {
        eReadForward = 0,      // the node itself, else the next sibling that is one
        eReadBackward = 1,     // the node itself, else the nearest one before it; lists come in reverse order
        eReadFirstSibling = 2, // the first one among all siblings
        eReadFirstChild = 3    // the first one below the node
    };

    explicit KvContourXMLImport(int useExceptions = 1);
    virtual ~KvContourXMLImport();

    // Reads a whole file and appends to the list. A file that can't be read or has another root than `Contours` gives 1
    // and no contours: that is required.
    int Execute(const KvString& fileName, KvTList<KvContour>& contours);
    // Reads the first contour and all further ones in the direction of the mode, and appends to the list. A failure
    // without exceptions doesn't end the reading; the contour is appended as far as it was read.
    int Execute(XML_PARSER& parser, KvTList<KvContour>& contours, eReadMode mode, int goToParent);
    // Reads one contour, which is set to its defaults first. `found` tells whether there was one. `goToParent` counts
    // in the child mode only.
    int Execute(XML_PARSER& parser, KvContour& contour, eReadMode mode, int& found, int goToParent);
    // Reads what stands below a `Contour` node, the cursor's node, in any order. Points are appended.
    int ReadContents(XML_PARSER& parser, KvContour& contour);

    void SetUseExceptions(int use) { UseExceptions = use; }

private:
    int Fail(const KvString& text, unsigned long line) const;
    int ReadPoints(XML_PARSER& parser, KvContour& contour) const;
    int ReadList(XML_PARSER& parser, KvTList<KvContour>& contours, bool backward);

    int UseExceptions;
};

} // namespace KvN
