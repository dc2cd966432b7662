#pragma once

#include <QLayout>

#include <memory>
#include <vector>

/// Children beside each other at the leading edge, each as wide as it likes to be. Where the room is too
/// little, the widest give way first, so that short texts stay whole as long as they can; whatever wraps
/// takes the lines that it needs. What does not fit at its least width begins a row below. Hidden children
/// take neither room nor spacing.
class FairRow : public QLayout {
    Q_OBJECT

public:
    /// `vertical` is where children stand that are lower than the row.
    explicit FairRow(int spacing, Qt::Alignment vertical = Qt::AlignTop, QWidget* parent = nullptr);

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Place {
        QLayoutItem* item;
        int width;
        int height;
    };

    using Row = std::vector<Place>;

    std::vector<Row> rowsIn(int room) const;
    void share(Row& row, int room) const;
    static int heightOf(const Row& row);

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
    Qt::Alignment m_vertical;
};
