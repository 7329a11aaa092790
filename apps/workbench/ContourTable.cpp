// The table's cells.
#include "apps/workbench/ContourTable.h"

#include "apps/workbench/EditorPane.h"
#include "apps/workbench/Texts.h"

#include <QColor>
#include <QLocale>

#include <limits>
#include <numbers>

namespace kv::workbench
{
namespace
{
using KvN::KvContour;

constexpr double unsetWidth = std::numeric_limits<double>::max();
constexpr std::uint32_t unsetColor = 0xFFFFFFFF;

QString KindText(const KvContour& contour)
{
    static constexpr unsigned short texts[] = {IDS_WB_KIND_RECT,   IDS_WB_KIND_POLYGON, IDS_WB_KIND_POLYLINE,
                                               IDS_WB_KIND_SQUARE, IDS_WB_KIND_ELLIPSE, IDS_WB_KIND_CIRCLE};
    const auto kind = static_cast<unsigned>(contour.ContourType());
    return kind < std::size(texts) ? Text(texts[kind]) : QString();
}

// A colour of the system has red in the low byte.
QColor ColorToQt(std::uint32_t color)
{
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                  static_cast<int>(color >> 16 & 0xFF));
}

std::uint32_t ColorFromQt(const QColor& color)
{
    return static_cast<std::uint32_t>(color.red() | color.green() << 8 | color.blue() << 16);
}

QString Measure(double value, int decimals)
{
    return QLocale().toString(value, 'f', decimals);
}

bool HasWidth(const KvContour& contour)
{
    return contour.ContourType() == KvContour::ePolyline;
}

// The editor of an unset width starts with a value that may be meant.
bool IsUnsetWidth(const KvContour& contour, int column)
{
    return column == ContourTable::Width && contour.LineWidth() == unsetWidth;
}

QString CellText(const KvContour& contour, int column)
{
    switch (column)
    {
    case ContourTable::Number:
        return QString::number(contour.ID());
    case ContourTable::Kind:
        return KindText(contour);
    case ContourTable::Effect:
        return Text(contour.Exclude() ? IDS_WB_EXCLUDED : IDS_WB_INCLUDED);
    case ContourTable::Description:
        return ToQt(contour.Description());
    case ContourTable::Color:
        return contour.Color() == unsetColor ? Text(IDS_WB_DEFAULT_COLOR) : ColorToQt(contour.Color()).name();
    case ContourTable::Width:
        return HasWidth(contour) && contour.LineWidth() != unsetWidth ? Measure(contour.LineWidth(), 1) : QString();
    case ContourTable::Area:
        return Measure(contour.GetArea(), 1);
    case ContourTable::Length:
        return Measure(contour.GetLength(), 1);
    case ContourTable::Angle:
        return Measure(contour.RotationAngle() * 180.0 / std::numbers::pi, 1) + QChar(0x00B0);
    default:
        return {};
    }
}

QVariant EditValue(const KvContour& contour, int column)
{
    switch (column)
    {
    case ContourTable::Description:
        return ToQt(contour.Description());
    case ContourTable::Color:
        return contour.Color() == unsetColor ? QVariant() : QVariant(ColorToQt(contour.Color()));
    case ContourTable::Width:
        return contour.LineWidth() == unsetWidth ? QVariant(1.0) : QVariant(contour.LineWidth());
    default:
        return {};
    }
}
} // namespace

ContourTable::ContourTable(EditorPane& pane_, QObject* parent) : QAbstractTableModel(parent), pane(pane_)
{
    connect(&pane, &EditorPane::ContoursShown, this, &ContourTable::Refresh);
    connect(&pane, &EditorPane::ContoursChanged, this, &ContourTable::Refresh);
    rows = pane.Count();
}

int ContourTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows;
}
int ContourTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ContourTable::data(const QModelIndex& index, int role) const
{
    const KvContour* contour = pane.At(index.row());
    if (!contour)
        return {};
    switch (role)
    {
    case Qt::DisplayRole:
        return CellText(*contour, index.column());
    case Qt::EditRole:
        return EditValue(*contour, index.column());
    case Qt::DecorationRole:
        return index.column() == Color && contour->Color() != unsetColor ? QVariant(ColorToQt(contour->Color()))
                                                                         : QVariant();
    case Qt::CheckStateRole:
        if (index.column() == ReadOnly)
            return contour->ReadOnly() ? Qt::Checked : Qt::Unchecked;
        if (index.column() == Effect)
            return contour->Exclude() ? Qt::Unchecked : Qt::Checked;
        return {};
    case Qt::TextAlignmentRole:
        return index.column() >= Area || index.column() == Number ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                                                                  : QVariant();
    default:
        return {};
    }
}

QVariant ContourTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr unsigned short titles[ColumnCount] = {
        IDS_WB_COL_NUMBER, IDS_WB_COL_KIND,     IDS_WB_COL_INCLUDED, IDS_WB_COL_DESCRIPTION, IDS_WB_COL_COLOR,
        IDS_WB_COL_WIDTH,  IDS_WB_COL_READONLY, IDS_WB_COL_AREA,     IDS_WB_COL_LENGTH,      IDS_WB_COL_ANGLE};
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section < ColumnCount)
        return Text(titles[section]);
    return {};
}

Qt::ItemFlags ContourTable::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags shown = QAbstractTableModel::flags(index);
    const KvContour* contour = pane.At(index.row());
    if (index.column() == ReadOnly)
        return shown | Qt::ItemIsUserCheckable;
    if (!contour || contour->ReadOnly())
        return shown; // all else of a protected contour stays as it is
    switch (index.column())
    {
    case Effect:
        return shown | Qt::ItemIsUserCheckable;
    case Description: // a colour has a dialog and no editor in its cell
        return shown | Qt::ItemIsEditable;
    case Width:
        return HasWidth(*contour) ? shown | Qt::ItemIsEditable : shown;
    default:
        return shown;
    }
}

bool ContourTable::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const KvContour* contour = pane.At(index.row());
    if (!contour || (role != Qt::EditRole && role != Qt::CheckStateRole))
        return false;
    if (contour->ReadOnly() && index.column() != ReadOnly)
        return false;
    if (role == Qt::EditRole && value == EditValue(*contour, index.column()) && !IsUnsetWidth(*contour, index.column()))
        return false;
    pane.Change(index.row(),
                [&](KvContour& target)
                {
                    const bool checked = value.toInt() == Qt::Checked;
                    switch (index.column())
                    {
                    case Effect:
                        target.Exclude() = !checked;
                        break;
                    case ReadOnly:
                        target.ReadOnly() = checked;
                        break;
                    case Description:
                        target.Description() = FromQt(value.toString());
                        break;
                    case Color:
                        target.Color() = value.isValid() ? ColorFromQt(value.value<QColor>()) : unsetColor;
                        break;
                    case Width:
                        target.LineWidth() = value.toDouble() > 0.0 ? value.toDouble() : unsetWidth;
                        break;
                    default:
                        break;
                    }
                });
    return true;
}

// Rows are only told apart by their number: a change of the count lays the table out anew, all else repaints it.
void ContourTable::Refresh()
{
    const int now = pane.Count();
    if (now > rows)
        beginInsertRows({}, rows, now - 1);
    else if (now < rows)
        beginRemoveRows({}, now, rows - 1);
    const int before = rows;
    rows = now;
    if (now > before)
        endInsertRows();
    else if (now < before)
        endRemoveRows();
    if (rows > 0)
        emit dataChanged(index(0, 0), index(rows - 1, ColumnCount - 1));
}

} // namespace kv::workbench
