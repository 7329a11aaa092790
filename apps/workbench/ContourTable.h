// The contours of the editor as a table: number, kind, effect, texts and measures. Attributes can be edited in place.
#pragma once

#include <QAbstractTableModel>

namespace kv::workbench
{

class EditorPane;

class ContourTable : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        Number,
        Kind,
        Effect,
        Description,
        Color,
        Width,
        ReadOnly,
        Area,
        Length,
        Angle,
        ColumnCount
    };

    explicit ContourTable(EditorPane& pane, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    void Refresh();

    EditorPane& pane;
    int rows = 0;
};

} // namespace kv::workbench
