// Makes texts that belong to an earlier picture look like it. Some fields keep their texts when a
// file is shown that has none for them; those are dimmed and in italics, and say in their tool
// tips, and to a screen reader, which picture they are from. What they say stays as it is.

#pragma once

#include <QObject>
#include <QString>

#include <set>

namespace pinorama {

class MainWindow;
class WrappedField;

class StaleFields : public QObject {
    Q_OBJECT

public:
    // The window, which has its views, lives longer.
    explicit StaleFields(MainWindow& window);

    // All of the fields show the texts of the file of that name.
    void takeFresh(const QString& name);

    // Another file is shown, and the place texts are still those of the file before; so are the
    // coordinate, the altitude and the direction with `keepsPosition`. A field without a text stays
    // as it is.
    void takeKept(bool keepsPosition);

    bool isStale(WrappedField* field) const { return stale_.contains(field); }

protected:
    // The colours follow those of the window.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void mark(WrappedField* field, bool isStale);
    void dim(WrappedField* field);

    MainWindow& window_;
    QString origin_;  // the name of the file that the texts are from
    std::set<WrappedField*> stale_;
};

}  // namespace pinorama
