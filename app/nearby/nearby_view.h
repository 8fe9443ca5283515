// The pictures of a search as a field of thumbnails. While there is none it shows a few words
// instead.

#pragma once

#include <QListView>
#include <QString>

#include <vector>

namespace pinorama {

class NearbyView : public QListView {
    Q_OBJECT

public:
    explicit NearbyView(QWidget* parent = nullptr);

    // What stands in the empty field.
    void setWords(const QString& words);

    // The rows that are in sight, from the first to the last.
    std::vector<int> rowsInSight() const;

Q_SIGNALS:
    // Other rows may be in sight.
    void sightChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* event) override;

private:
    void fitCells();

    QString words_;
};

}  // namespace pinorama
