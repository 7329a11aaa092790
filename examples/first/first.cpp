// The first example of the README: mark two regions, measure them, save them.
#include "C/syContour.h"
#include "C/syContourXMLExport.h"

#include <iostream>

int main()
{
    KvTList<KvN::KvContour> contours;
    KvN::KvContour figure;
    figure.MakeCircle(200.0, 150.0, 60.0);
    contours.AddTail(figure);
    figure.MakeRectFromDiagonal(20.0, 30.0, 120.0, 90.0);
    figure.Exclude() = 1;
    contours.AddTail(figure);
    std::cout << "area " << contours[0].GetArea() << ", length " << contours[1].GetLength() << '\n';
    return KvN::KvContourXMLExport().Execute(L"regions.xml", contours) ? 0 : 1;
}
