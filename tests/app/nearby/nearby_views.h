// What is in a window of pictures nearby, for tests that look at it and click in it.

#pragma once

#include "app/nearby/nearby_view.h"

#include <QAbstractItemModel>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <string>

namespace test {

class NearbyViews {
public:
    explicit NearbyViews(QWidget* window) : window_(window) {}

    pinorama::NearbyView* view() const { return child<pinorama::NearbyView>("nearbyPictures"); }
    QAbstractItemModel* model() const { return view()->model(); }
    QPushButton* stopButton() const { return child<QPushButton>("nearbyStopButton"); }
    std::string heading() const { return child<QLabel>("nearbyHeading")->text().toStdString(); }
    std::string status() const
    {
        return child<QLabel>("nearbyStatus")->accessibleName().toStdString();
    }

    // The texts of all rows.
    std::string texts() const
    {
        std::string texts;
        for (int row = 0; row < model()->rowCount(); row++) texts += text(row) + "; ";
        return texts;
    }
    std::string text(int row) const
    {
        return model()->index(row, 0).data(Qt::AccessibleTextRole).toString().toStdString();
    }
    QModelIndex index(int row) const { return model()->index(row, 0); }
    void click(int row) const
    {
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, {},
                          view()->visualRect(index(row)).center());
    }

private:
    template <typename Widget>
    Widget* child(const char* name) const
    {
        return window_->findChild<Widget*>(QLatin1String(name));
    }

    QWidget* window_;
};

}  // namespace test
