// FDovrin: the controls of the table and their places, in twips.
#include "shell/f_dovrin.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>

#include "platform/display/name_font.h"
#include "platform/display/pictures.h"
#include "platform/display/twips.h"
#include "shell/table_canvas.h"
#include "sound/mod_global_music.h"
#include "table/labels.h"

using platform::TwipsRect;

namespace {

constexpr int kClientWidthTwips = 9630;
constexpr int kClientHeightTwips = 6690;
constexpr int kMenuBarEstimate = 19;  // pixels: the menu bar in the design font
constexpr double kNamePointSize = 12;  // a name plate's size, for names that fit it

QColor FromBgr(std::int32_t bgr) {
    return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF);
}

// Seat order of the arrays: 0 left computer, 1 top computer, 2 right
// computer, 3 the human. Each entry is the control's left and top in twips.
struct Place {
    int left;
    int top;
};
using SeatPlaces = std::array<Place, 4>;
const SeatPlaces kShpPlayer = {{{120, 4320}, {120, 120}, {7920, 120}, {7920, 4320}}};
const SeatPlaces kLblPlayer = {{{120, 4350}, {120, 150}, {7920, 150}, {7920, 4350}}};
const SeatPlaces kLblCardNo = {{{680, 4800}, {680, 600}, {8480, 600}, {8480, 4800}}};
const SeatPlaces kImgSad = {{{780, 4800}, {780, 600}, {8580, 600}, {8580, 4800}}};
const SeatPlaces kImgSuit = {{{1200, 4800}, {1200, 600}, {9000, 600}, {9000, 4800}}};
const SeatPlaces kLblAmt = {{{600, 5400}, {600, 1200}, {8400, 1200}, {8400, 5400}}};
const SeatPlaces kLblCardsLeft = {{{840, 6000}, {840, 1800}, {8640, 1800}, {8640, 6000}}};
// The corner frames; their index is no seat index.
const SeatPlaces kShpRect = {{{0, 0}, {0, 4200}, {7800, 0}, {7800, 4200}}};

// Painted by the style rather than filled by the widget: a filled label is
// opaque to the window system, and the flights' layer over it would be cut
// out where it lies.
QLabel* BoxedLabel(QWidget* parent, const QRect& rect, double pointSize, const QColor& text) {
    auto* label = new QLabel(parent);
    label->setGeometry(rect);
    label->setAlignment(Qt::AlignCenter);
    label->setFrameShape(QFrame::Box);
    label->setLineWidth(1);
    label->setStyleSheet(QStringLiteral("background-color: white; color: %1;").arg(text.name()));
    QFont font = label->font();
    font.setPointSizeF(pointSize);
    label->setFont(font);
    return label;
}

QLabel* PictureLabel(QWidget* parent, const QRect& rect) {
    auto* label = new QLabel(parent);
    label->setGeometry(rect);
    label->setScaledContents(true);  // stretched, as the table's pictures are
    return label;
}

}  // namespace

ShapeWidget::ShapeWidget(QWidget* parent, bool filled) : QWidget(parent), filled_(filled) {
    // The form sees the mouse through a shape.
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ShapeWidget::SetFillColor(std::int32_t bgr) {
    fillColor_ = bgr;
    update();
}

void ShapeWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal pen = filled_ ? 3 : 2;
    painter.setPen(QPen(FromBgr(0x404040), pen));
    painter.setBrush(filled_ ? QBrush(FromBgr(fillColor_)) : Qt::NoBrush);
    const QRectF box = QRectF(rect()).adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2);
    const qreal radius = std::min(box.width(), box.height()) / 4;
    painter.drawRoundedRect(box, radius, radius);
}

QSize FDovrin::DesignSize() {
    return QSize(platform::TwipsToPixels(kClientWidthTwips),
                 platform::TwipsToPixels(kClientHeightTwips) + kMenuBarEstimate);
}

FDovrin::FDovrin(QWidget* parent)
    : QMainWindow(parent),
      canvas_(new TableCanvas(this)),
      surface_(canvas_, QSize(platform::TwipsToPixels(kClientWidthTwips),
                              platform::TwipsToPixels(kClientHeightTwips)),
               QColor(0x1e, 0x4d, 0x2b)),
      game_(*this) {
    setCentralWidget(canvas_);
    canvas_->setFixedSize(platform::TwipsToPixels(kClientWidthTwips),
                          platform::TwipsToPixels(kClientHeightTwips));
    // The window grows only by the steps of the zoom, which follows a
    // maximise or a drag of the border (platform/display/zoom.cpp).
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
    setWindowIcon(QIcon(platform::LoadArtPicture(QStringLiteral("dovrin"), QSize(64, 64))));
    CreateControls();
    CreateMenus();
    modGlobal::goMainForm = this;
    tmrCount.SetInterval(1);
    connect(&tmrCount, &platform::PlatformTimer::Timer, this, [this] { game_.tmrCount_Timer(); });
    tmrMidi->SetEnabled(false);
    tmrMidi->SetInterval(500);
    connect(tmrMidi, &platform::PlatformTimer::Timer, this, &FDovrin::tmrMidi_Timer);
    CreateSprites();
    CreateHelpPanel();
    topTen_.SetHighScoreFanfare([this] { CelebrateHighScore(); });
    qApp->installEventFilter(this);  // the form sees the keys before its controls
}

FDovrin::~FDovrin() {
    qApp->removeEventFilter(this);
    if (modGlobal::goMainForm == this) modGlobal::goMainForm = nullptr;
    modGlobal::goMidi.reset();  // the unload releases the music object
}

void FDovrin::CreateControls() {
    for (int i = 0; i < 4; ++i) {
        shpRect[i] = new ShapeWidget(canvas_, false);
        shpRect[i]->setGeometry(TwipsRect(kShpRect[i].left, kShpRect[i].top, 1815, 2415));
    }
    for (int seat = 0; seat < 4; ++seat) {
        shpPlayer[seat] = new ShapeWidget(canvas_, true);
        shpPlayer[seat]->setGeometry(
            TwipsRect(kShpPlayer[seat].left, kShpPlayer[seat].top, 1575, 375));
        shpPlayer[seat]->SetFillColor(kMarkerIdle);

        lblPlayer[seat] = new QLabel(canvas_);
        lblPlayer[seat]->setGeometry(
            TwipsRect(kLblPlayer[seat].left, kLblPlayer[seat].top, 1575, 375));
        lblPlayer[seat]->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        lblPlayer[seat]->setFont(platform::NameFont(kNamePointSize, true));
        lblPlayer[seat]->setStyleSheet(QStringLiteral("color: #000080; background: transparent;"));
        lblPlayer[seat]->setAttribute(Qt::WA_TransparentForMouseEvents);
        lblPlayer[seat]->setContentsMargins(3, 0, 3, 0);  // a name keeps clear of the plate's rounded ends

        lblCardNo[seat] = BoxedLabel(
            canvas_, TwipsRect(kLblCardNo[seat].left, kLblCardNo[seat].top, 495, 450), 13.5,
            Qt::black);
        imgSad[seat] =
            PictureLabel(canvas_, TwipsRect(kImgSad[seat].left, kImgSad[seat].top, 480, 450));
        imgSad[seat]->setPixmap(platform::LoadArtPicture(QStringLiteral("sad"), QSize(32, 32)));
        imgSad[seat]->hide();
        imgSuit[seat] =
            PictureLabel(canvas_, TwipsRect(kImgSuit[seat].left, kImgSuit[seat].top, 480, 450));
        lblAmt[seat] = BoxedLabel(
            canvas_, TwipsRect(kLblAmt[seat].left, kLblAmt[seat].top, 855, 450), 13.5, Qt::black);
        lblAmt[seat]->setText(QStringLiteral("200"));
        lblCardsLeft[seat] = BoxedLabel(
            canvas_, TwipsRect(kLblCardsLeft[seat].left, kLblCardsLeft[seat].top, 615, 450), 13.5,
            Qt::black);
        lblCardsLeft[seat]->setText(QStringLiteral("13"));
    }
    lblPot = BoxedLabel(canvas_, TwipsRect(120, 3120, 1215, 450), 13.5, QColor(0x80, 0x00, 0x80));
    lblPot->setText(QStringLiteral("$0"));

    cmdWantMore = new QPushButton(canvas_);
    cmdWantMore->setGeometry(TwipsRect(7920, 2520, 1575, 615));
    cmdWantMore->setIcon(platform::ArtIcon(QStringLiteral("want_more")));
    cmdWantMore->setIconSize(QSize(94, 20));
    cmdWantMore->setToolTip(QStringLiteral("Want more?"));
    connect(cmdWantMore, &QPushButton::clicked, this, &FDovrin::cmdWantMore_Click);

    cmdUser = new QPushButton(canvas_);
    cmdUser->setGeometry(TwipsRect(7920, 3250, 1575, 840));
    cmdUser->setIcon(platform::ArtIcon(QStringLiteral("pay_pot")));
    cmdUser->setIconSize(QSize(94, 38));
    cmdUser->setToolTip(QStringLiteral("Pay the pot"));
    QFont buttonFont(QStringLiteral("Eras Demi ITC"));
    buttonFont.setPointSizeF(14.25);
    cmdUser->setFont(buttonFont);
    connect(cmdUser, &QPushButton::clicked, this, &FDovrin::cmdUser_Click);

    // A flying card passes over every control but the two buttons.
    overControls_ = new platform::SurfaceOverlay(canvas_, surface_);
    cmdWantMore->raise();
    cmdUser->raise();
}

void FDovrin::SetPlayerName(int seat, const std::string& name) {
    table::ShowName(*lblPlayer.at(seat), name, kNamePointSize, true);
}

std::string FDovrin::MoneyCaption(int seat) const { return lblAmt.at(seat)->text().toStdString(); }

std::string FDovrin::UserTag() const { return userTag_; }

void FDovrin::SetUserTag(const std::string& tag) { userTag_ = tag; }

void FDovrin::SetCaption(const std::string& caption) {
    setWindowTitle(QString::fromStdString(caption));
}
