// The place of the preview, or of a few words on why there is none. While it is empty it shows an
// outline, so that the window says where a picture can be dropped. The preview can be dragged out:
// what is dragged is the file.

#pragma once

#include <QLabel>

#include <memory>
#include <string>

class QMimeData;

namespace pinorama {

class PictureField : public QLabel {
    Q_OBJECT

public:
    explicit PictureField(QWidget* parent = nullptr) : QLabel(parent) { setWordWrap(true); }

    // The file that is dragged, an absolute path in the bytes of the system; empty for none.
    void setFile(const std::string& path) { file_ = path; }

    // What a drag carries: the file's address. Null for none. It is not looked at again: a disk may
    // not answer, and whoever gets the address finds out.
    std::unique_ptr<QMimeData> dragData() const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::string file_;
    QPoint pressedAt_;
};

}  // namespace pinorama
