// Saves files that the user has asked for, where a disk may not answer: an opener does the writing
// (opener/opener_client.h).

#pragma once

#include <QObject>

#include <memory>
#include <string>
#include <vector>

#include "base/descriptor.h"
#include "opener/opener_question.h"

namespace pinorama {

class FileSaving : public QObject {
    Q_OBJECT

public:
    explicit FileSaving(QObject* parent = nullptr);

    // Waits, but not for ever, for what is not saved yet.
    ~FileSaving() override;

    // Saves what is in `content`, a file in memory, as the file at `path` (bytes of the system).
    // That usually takes some milliseconds, and this waits as long.
    // There may be several at a time.
    void save(const std::string& path, DescriptorHolder content);

    // Whether something is not saved yet.
    bool isUnderWay() const { return !files_.empty(); }

Q_SIGNALS:
    // What became of a file: `error` is 0 when it is saved, else errno; ETIMEDOUT when the disk has
    // not answered so far, after which the signal comes again if it does.
    void saved(const std::string& path, int error);

private:
    struct File {
        std::string path;
        std::shared_ptr<OpenerQuestion> question;
    };

    void takeAnswers();
    void saySlow(const std::string& path, const std::weak_ptr<OpenerQuestion>& question);

    std::vector<File> files_;
};

}  // namespace pinorama
