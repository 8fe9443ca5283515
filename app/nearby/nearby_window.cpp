#include "app/nearby/nearby_window.h"

#include "app/nearby/nearby_folders.h"
#include "app/nearby/nearby_view.h"
#include "app/shown_text.h"
#include "base/file_uri.h"
#include "base/user_folders.h"
#include "desktop/portal_chooser.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/qt_text.h"
#include "location/file_name.h"

#include <QAccessible>
#include <QAction>
#include <QCloseEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace pinorama {
namespace {
constexpr QSize kUsualSize(480, 480);
constexpr int kSettling = 50;  // milliseconds

QString displayOf(const std::string& path)
{
    const StringHolder text(createPathText(path));
    return isolatedPath(shownText(cuDisplayText(text.get())));
}

QString nameOfFile(const std::string& path)
{
    const StringHolder text(createPathText(path));
    const StringHolder name(gpsCopyFileName(text.get()));
    return isolated(shownText(cuDisplayText(name.get())));
}

std::string picturesFolder()
{
    return QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation))
        .toStdString();
}

// As the tool tip of the button that opens the window has it: without separators.
QString radius()
{
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(NearbySearch::kRadius);
}

QLabel* makeLabel(const QString& name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}
}  // namespace

NearbyWindow::NearbyWindow(UrlOpener& opener, QWidget* parent)
    : QWidget(parent, Qt::Window),
      opener_(opener),
      openWith_(opener),
      heading_(makeLabel(QStringLiteral("nearbyHeading"), this)),
      view_(new NearbyView(this)),
      status_(makeLabel(QStringLiteral("nearbyStatus"), this)),
      //: Button: ends the search
      stopButton_(new QPushButton(tr("&Stop"), this))
{
    setObjectName(QStringLiteral("nearbyWindow"));
    //: Title of the window
    setWindowTitle(tr("Pictures Nearby"));
    view_->setObjectName(QStringLiteral("nearbyPictures"));
    view_->setModel(&model_);
    stopButton_->setObjectName(QStringLiteral("nearbyStopButton"));

    auto* foot = new QHBoxLayout;
    foot->addWidget(status_, 1);
    foot->addWidget(stopButton_, 0, Qt::AlignRight);  // mirrored with the window
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(heading_);
    rows->addWidget(view_, 1);
    rows->addLayout(foot);
    resize(kUsualSize);
    connectViews();
    addActions();
}

NearbyWindow::~NearbyWindow()
{
    delete view_;  // before what it shows
}

void NearbyWindow::connectViews()
{
    connect(&search_, &NearbySearch::found, this,
            [this](const std::vector<NearbyPicture>& pictures) {
                model_.add(pictures);
                setState(State::running);
                watchSight();
            });
    connect(&search_, &NearbySearch::finished, this, [this](NearbySearch::Outcome outcome) {
        using Outcome = NearbySearch::Outcome;
        setState(outcome == Outcome::complete   ? State::complete
                 : outcome == Outcome::cutShort ? State::cutShort
                                                : State::missing);
    });
    connect(&thumbnails_, &NearbyThumbnails::loaded, &model_, &NearbyModel::setThumbnail);
    sight_.setSingleShot(true);
    connect(&sight_, &QTimer::timeout, this, &NearbyWindow::loadThumbnails);
    connect(view_, &NearbyView::sightChanged, this, [this] { watchSight(); });
    connect(view_, &QListView::clicked, this,
            [this](const QModelIndex& index) { Q_EMIT chosen(std::string(model_.pathOf(index))); });
    connect(view_, &QListView::activated, this,
            [this](const QModelIndex& index) { Q_EMIT opened(std::string(model_.pathOf(index))); });
    connect(stopButton_, &QPushButton::clicked, this, &NearbyWindow::stop);
}

// The items of the context menu, which the keyboard opens as well.
void NearbyWindow::addActions()
{
    //: Context menu: opens the picture in the program for it
    addAction(tr("&Open"), "nearbyOpenAction", &NearbyWindow::openCurrent);
    //: Context menu: has the user choose the program
    addAction(tr("Open &With…"), "nearbyOpenWithAction", &NearbyWindow::openCurrentWith);
    view_->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void NearbyWindow::addAction(const QString& text, const char* name, void (NearbyWindow::*work)())
{
    auto* action = new QAction(text, view_);
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, work);
    view_->addAction(action);
    const auto enable = [this, action] { action->setEnabled(view_->currentIndex().isValid()); };
    connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, action, enable);
    connect(&model_, &QAbstractItemModel::modelReset, action, enable);
    enable();
}

void NearbyWindow::search(const std::string& picture, NearbyPlace place)
{
    thumbnails_.want({}, devicePixelRatioF());
    model_.setEmptyThumbnail(NearbyThumbnails::emptyOne(devicePixelRatioF()));
    model_.begin(picture);
    folders_ = foldersAround(picture, homeFolder(), picturesFolder());
    //: Above the pictures that were found; %1 is a distance, %2 the name of a file
    heading_->setText(tr("Within %1 m of %2").arg(radius(), nameOfFile(picture)));
    search_.begin(place, folders_);
    setState(State::running);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    view_->setFocus();
}

bool NearbyWindow::isBusy() const
{
    if (state_ == State::running || sight_.isActive()) return true;
    const std::vector<int> rows = view_->rowsInSight();
    return std::any_of(rows.begin(), rows.end(),
                       [this](int row) { return !model_.hasThumbnail(row); });
}

void NearbyWindow::stop()
{
    if (state_ != State::running) return;
    search_.end();
    setState(State::stopped);
}

void NearbyWindow::setState(State state)
{
    state_ = state;
    const QString text = words();
    status_->setText(text);
    // Where there is no picture there is room for them.
    const bool isEmpty = model_.foundCount() == 0;
    status_->setVisible(!isEmpty);
    status_->setAccessibleName(text);
    view_->setWords(isEmpty ? text : QString());
    view_->setAccessibleName(isEmpty ? text : windowTitle());
    const bool isRunning = state == State::running;
    if (!isRunning && stopButton_->hasFocus()) view_->setFocus();
    stopButton_->setEnabled(isRunning);
    if (isRunning || !isVisible()) return;
    // A screen reader reads out how it ended and leaves the focus where it is.
    QAccessibleEvent alert(isEmpty ? static_cast<QWidget*>(view_) : status_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

QString NearbyWindow::words() const
{
    constexpr std::uint64_t kMaxCount = std::numeric_limits<int>::max();  // of the toolkit
    const auto count = static_cast<int>(std::min(model_.foundCount(), kMaxCount));
    switch (state_) {
    case State::running:
        //: Below the pictures, until the first is found
        if (count == 0) return tr("Searching...");
        //: Below the pictures; %Ln is their number
        return tr("Searching... %Ln picture(s) found so far", nullptr, count);
    //: Below the pictures, after the button "Stop"; %Ln is their number
    case State::stopped: return tr("Stopped. %Ln picture(s) found until then", nullptr, count);
    case State::cutShort:
        //: Below the pictures: the search failed; %Ln is their number
        return tr("The search ended too early. %Ln picture(s) found until then", nullptr, count);
    case State::missing:
        //: Below the pictures. pinorama-search is the name of a program and stays
        return tr("Pictures cannot be searched for: the program pinorama-search does not start.");
    case State::complete: break;
    }
    if (model_.foundCount() > NearbyModel::kMaxPictures) {
        //: Below the pictures; %Ln is a large number, %1 the text "The nearest ... are shown."
        return tr("%Ln picture(s) found. %1", nullptr, count)
            //: The sentence after "... pictures found."; %Ln is a large number
            .arg(tr("The nearest %Ln picture(s) are shown.", nullptr, model_.rowCount()));
    }
    //: Below the pictures; %Ln is their number
    if (count > 0) return tr("%Ln picture(s) found", nullptr, count);
    QStringList folders;
    for (const std::string& folder : folders_) folders.append(displayOf(folder));
    //: In the place of the pictures; %1 is a distance, %2 a list of folders
    return tr("No other picture within %1 m was found in these folders:\n%2")
        .arg(radius(), folders.join(QLatin1Char('\n')));
}

// While pictures go on coming in they are looked at now and then, and not only at the end.
void NearbyWindow::watchSight()
{
    if (!sight_.isActive()) sight_.start(kSettling);
}

void NearbyWindow::loadThumbnails()
{
    if (!isVisible()) return;
    std::vector<std::string> paths;
    for (const int row : view_->rowsInSight()) {
        if (!model_.hasThumbnail(row)) paths.push_back(model_.pathOf(model_.index(row)));
    }
    thumbnails_.want(paths, devicePixelRatioF());
}

void NearbyWindow::openCurrent()
{
    const std::string& path = model_.pathOf(view_->currentIndex());
    if (!path.empty()) opener_.open(QByteArray::fromStdString(fileURIOfPath(path)));
}

void NearbyWindow::openCurrentWith()
{
    const std::string& path = model_.pathOf(view_->currentIndex());
    if (!path.empty()) openWith_.ask(path, portalParent(winId()));
}

// What is not seen is not searched for.
void NearbyWindow::closeEvent(QCloseEvent* event)
{
    stop();
    sight_.stop();
    thumbnails_.stop();
    QWidget::closeEvent(event);
}

void NearbyWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel) || event->matches(QKeySequence::Close)) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

void NearbyWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    watchSight();
}

}  // namespace pinorama
