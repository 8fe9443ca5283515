// The bytes of a picture as the device that Qt's image plug-ins read from.

#pragma once

#include <QIODevice>

#include "pictures/byte_source.h"

namespace pinorama {

class ByteDevice : public QIODevice {
public:
    // `source` has to outlive the device, which is open for reading at once.
    explicit ByteDevice(ByteSource& source);

    bool isSequential() const override { return false; }
    qint64 size() const override;

protected:
    qint64 readData(char* dest, qint64 wanted) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    ByteSource& source_;
};

}  // namespace pinorama
