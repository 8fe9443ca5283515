// A larger preview of the picture that is shown, where the window has room for more than the small
// one, or its screen a higher density. It is asked for when the small one is there, and again when
// the window has been made larger, or has come to such a screen, and has settled; the file is
// opened anew for it, because an open file would keep a memory card from being removed.
//
// It comes in two sizes, those of the desktop's thumbnails: whichever covers what is needed. So a
// picture is read at most two more times for each density, however often the window changes its
// size. Nothing is
// asked for if the small one shows all pixels that the file has, if there is no preview, while the
// window is hidden, and no more once the file has given nothing, or nothing larger. Whatever fails,
// the small one stays, and nothing is said.

#pragma once

#include "base/file_attributes.h"
#include "opener/opener_question.h"
#include "previews/preview_loader.h"

#include <QObject>
#include <QTimer>

#include <array>
#include <memory>
#include <string>

namespace pinorama {

class PictureField;

class LargerPreview : public QObject {
    Q_OBJECT

public:
    static constexpr std::array<int, 2> kSides = {256, 512};  // points

    // The field lives longer.
    explicit LargerPreview(PictureField& field);

    // The field has a preview of this file now, and a larger one may follow.
    //
    //   path  absolute, in the bytes of the system.
    //   item  what was there. A file that has changed since gets no larger preview.
    void follow(const std::string& path, const FileAttributes& item);

    // Another file is shown: nothing comes any more of the one before.
    void forget();

    // Whether one has been asked for and neither come nor failed.
    bool isComing() const { return opening_ != nullptr || loader_.isLoading(); }

    // How many have been asked for, for tests.
    int requests() const { return requests_; }

private:
    // The square that a preview is made for.
    struct Square {
        int side = 0;     // points; 0 for none
        qreal ratio = 1;  // pixels per point

        qreal pixels() const { return side * ratio; }
    };

    Square wanted() const;
    void adapt();
    void ask();
    void takeOpened();
    void take(const QPixmap& preview, bool isPreview);
    void settleForWhatIsThere();

    PictureField& field_;
    PreviewLoader loader_{PreviewUse::larger};
    std::shared_ptr<OpenerQuestion> opening_;  // null unless the file is being opened
    QTimer settled_;                           // runs out when the room has not changed for long
    std::string path_;                         // empty if there is nothing to follow
    FileAttributes item_{};
    Square asked_;  // that of the last one that was asked for
    Square there_;  // that of the one that is shown
    int requests_ = 0;
};

}  // namespace pinorama
