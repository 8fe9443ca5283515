// A line at the foot of the window that says that a picture is still being read, that it could not
// be, or that its disk does not answer. It is hidden, and takes no room, while there is nothing to
// say.

#pragma once

#include "app/elided_field.h"

#include <QString>

namespace pinorama {

class ReadingNotice : public ElidedField {
    Q_OBJECT

public:
    explicit ReadingNotice(QWidget* parent = nullptr);

    // What it says of a file that could not be read; `name` as it stands in a sentence.
    static QString wordsOfNotRead(const QString& name);

    // Each shows the line; `name` is the file name of the picture.
    void sayStillReading(const QString& name);
    void sayNotRead(const QString& name);
    void sayNotAnswering(const QString& name);
    // The same of the file beside it that says more about it.
    void saySidecarNotRead(const QString& name);
    void saySidecarNotAnswering(const QString& name);

    // The reading is over: takes back that it goes on, or that nothing answers. That it has failed
    // stays.
    void endReading();

    // Whether it says that reading has failed.
    bool saysFailure() const { return !isHidden() && !isStillReading_; }

    // Nothing is to be said any more, as another file is shown.
    void forget();

private:
    void say(const QString& words);

    bool isStillReading_ = false;
};

}  // namespace pinorama
