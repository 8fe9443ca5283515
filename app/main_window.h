// The window as MainWindow.ui describes it, and what only concerns its looks and its drops.

#pragma once

#include "ui_MainWindow.h"

#include <QByteArray>
#include <QMainWindow>

class MainWindow : public QMainWindow, public Ui::MainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);

Q_SIGNALS:
    // Files were dropped on the window; `path` is the last of them, absolute and in raw bytes.
    void fileDropped(const QByteArray& path);

protected:
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void quietCaptions();
    void showMarker();
};
