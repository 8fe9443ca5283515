// Says once, and never again, that closing the window does not end the program: at the foot of the
// window, when it comes back after it was closed for the first time.

#pragma once

#include <QObject>

namespace pinorama {

class MainWindow;

class ClosingWords : public QObject {
    Q_OBJECT

public:
    // Watches the window, whose child this is.
    explicit ClosingWords(MainWindow& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString words() const;

    MainWindow& window_;
    bool isDue_ = false;
};

}  // namespace pinorama
