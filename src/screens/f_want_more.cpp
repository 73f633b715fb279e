// FWantMore: the form, its pictures, its clock (tmrAnim) and its close. The
// script of the figures is in f_want_more_script.cpp.
#include "screens/f_want_more.h"

#include <QLabel>
#include <QPushButton>

#include "platform/display/pictures.h"
#include "platform/display/twips.h"
#include "screens/info_form.h"
#include "screens/maker.h"
#include "screens/mod_animation.h"
#include "sound/mod_global_music.h"
#include "sound/mod_sound_lib.h"

using platform::BitBlt;
using platform::PictureBox;
using platform::SRCCOPY;

namespace {

constexpr int kFormWidth = 5415;
constexpr int kFormHeight = 5025;
constexpr QSize kStagePicture{393, 273};
constexpr QSize kStageShown{365, 249};
constexpr QSize kPanel{50, 60};
constexpr QSize kLargeView{133, 145};
constexpr int kPanelFrameWidth = 54;
constexpr int kFramesPerPass = 8;
// How many passes each state of the clock lasts, states 1 to 6.
constexpr std::array<std::int16_t, 7> kPasses = {0, 4, 2, 2, 2, 4, 6};
constexpr std::array<QPoint, 2> kLargeFigure = {QPoint(0, 104), QPoint(232, 104)};

QImage Art(const QString& name, QSize size) {
    return platform::LoadArtImage(QStringLiteral("scene/") + name, size);
}

PictureBox* HiddenBox(QWidget* form, QSize size) {
    auto* box = new PictureBox(form, size);
    box->hide();
    return box;
}

platform::SpriteImages Sprite(const QString& name, QSize size) {
    return platform::LoadSpriteImages(QStringLiteral("scene/") + name, size);
}

// A figure on its box and its silhouette on the mask's.
void ShowSprite(PictureBox* figure, PictureBox* mask, const QString& name, QSize size) {
    const platform::SpriteImages sprite = Sprite(name, size);
    figure->SetPicture(sprite.figure);
    mask->SetPicture(sprite.mask);
}

// A part of a figure's picture, given in logical pixels.
QImage Part(const QImage& picture, QRect part) {
    const qreal ratio = picture.devicePixelRatio();
    return picture.copy(QRect(part.topLeft() * ratio, part.size() * ratio));
}

}  // namespace

FWantMore::FWantMore(QWidget* parent) : platform::ArtDialog(parent, kFormWidth, kFormHeight) {
    setWindowTitle(QStringLiteral(" Want More..."));
    CreatePictures();
    Image2 = new QLabel(this);
    Image2->setGeometry(platform::TwipsRect(705, 3255, 4155, 795));
    Image2->setPixmap(platform::LoadArtPicture(QStringLiteral("scene/scene_banner"), QSize(277, 53)));
    Image2->lower();  // a lightweight picture lies under the picture boxes
    cmdVisitWebPage = new QPushButton(this);
    cmdVisitWebPage->setGeometry(platform::TwipsRect(1320, 4080, 2775, 375));
    const QSize visitPicture(177, 24);
    cmdVisitWebPage->setIcon(platform::ArtIcon(QStringLiteral("scene/visit_button")));
    cmdVisitWebPage->setIconSize(visitPicture);
    cmdVisitWebPage->setAutoDefault(false);
    connect(cmdVisitWebPage, &QPushButton::clicked, this, &FWantMore::cmdVisitWebPage_Click);
    cmdWantMore = screens::PlaceClosingButton(*this, QStringLiteral("&Close"), QRect(1800, 4560, 1815, 375));
    cmdWantMore->setFocus();

    const std::array<std::pair<platform::PlatformTimer*, int>, 4> timers = {
        {{tmrUFO, 5}, {smTimer, 25}, {tmrAnim, 70}, {tmrMidi, 500}}};
    for (const auto& [timer, interval] : timers) {
        timer->SetEnabled(false);
        timer->SetInterval(interval);
    }
    connect(tmrUFO, &platform::PlatformTimer::Timer, this, &FWantMore::tmrUFO_Timer);
    connect(smTimer, &platform::PlatformTimer::Timer, this, &FWantMore::smTimer_Timer);
    connect(tmrAnim, &platform::PlatformTimer::Timer, this, &FWantMore::tmrAnim_Timer);
    connect(tmrMidi, &platform::PlatformTimer::Timer, this, [this] { modGlobal::WatchTune(*this, "sweetone.mid"); });
    Form_Load();
}

void FWantMore::CreatePictures() {
    picForm = new PictureBox(this, kStagePicture);
    picForm->setGeometry(QRect(QPoint(0, 0), kStageShown));
    picUFO = HiddenBox(this, QSize(333, 31));
    picUFOMask = HiddenBox(this, QSize(47, 31));
    picRay = HiddenBox(this, QSize(148, 200));
    picRay_Msk = HiddenBox(this, QSize(148, 200));
    picRay_WA = HiddenBox(this, QSize(148, 200));
    picRay_BG = HiddenBox(this, QSize(148, 200));
    picCaptive = HiddenBox(this, QSize(20, 30));
    picCaptiveMsk = HiddenBox(this, QSize(20, 30));
    picCaptiveBG = HiddenBox(this, QSize(34, 55));
    picCaptiveWA = HiddenBox(this, QSize(36, 54));
    picPlaneSpr = HiddenBox(this, QSize(512, 38));
    picPlaneMsk = HiddenBox(this, QSize(512, 38));
    picAirSignSpr = HiddenBox(this, QSize(179, 38));
    picAirSignMsk = HiddenBox(this, QSize(179, 38));
    picAirSignWA = HiddenBox(this, QSize(288, 41));
    picAirSignBG = HiddenBox(this, QSize(288, 41));
    for (int way = 0; way < 2; ++way) {
        picSmSprite[way] = HiddenBox(this, QSize(39, 104));
        picSmMask[way] = HiddenBox(this, QSize(39, 104));
    }
    picSmWorkArea = HiddenBox(this, QSize(63, 120));
    picSmBackGround = HiddenBox(this, QSize(63, 120));
    for (int side = 0; side < 2; ++side) {
        picSprite[side] = HiddenBox(this, kLargeView);
        picMask[side] = HiddenBox(this, kLargeView);
        picSprite[side + 2] = HiddenBox(this, kLargeView);
    }
    picWorkArea = HiddenBox(this, QSize(137, 149));
    picBackGround = HiddenBox(this, QSize(137, 149));
    picHidden = HiddenBox(this, QSize(433, 61));
    picDest = new PictureBox(this, kPanel);
    picDest->move(platform::TwipsRect(240, 3720, 0, 0).topLeft());
    picDest2 = new PictureBox(this, kPanel);
    picDest2->move(platform::TwipsRect(4440, 3720, 0, 0).topLeft());
    DrawPictures();
}

void FWantMore::DrawPictures() {
    picturesRatio_ = platform::BlitPixelRatio();
    picForm->SetPicture(Art(QStringLiteral("stage"), kStagePicture));
    stageGround = *picForm->hDC();

    const platform::SpriteImages ufo = Sprite(QStringLiteral("ufo"), QSize(333, 31));
    picUFO->SetPicture(ufo.figure);
    // One mask serves every frame: the first frame's outline.
    picUFOMask->SetPicture(Part(ufo.mask, QRect(0, 0, 47, 31)));
    ShowSprite(picRay, picRay_Msk, QStringLiteral("ray"), QSize(148, 200));
    ShowSprite(picCaptive, picCaptiveMsk, QStringLiteral("captive"), QSize(20, 30));
    picCaptiveBG->SetPicture(Art(QStringLiteral("captive_ground"), QSize(34, 55)));
    ShowSprite(picPlaneSpr, picPlaneMsk, QStringLiteral("plane"), QSize(512, 38));
    ShowSprite(picAirSignSpr, picAirSignMsk, QStringLiteral("air_sign"), QSize(179, 38));

    const std::array<const char*, 2> smallNames = {"small_right", "small_left"};
    for (int way = 0; way < 2; ++way) {
        ShowSprite(picSmSprite[way], picSmMask[way], QString::fromUtf8(smallNames[way]), QSize(39, 104));
    }
    // Each side's picture holds both views, the second at 133; the two
    // views share one outline.
    const std::array<const char*, 2> largeNames = {"large_left", "large_right"};
    for (int side = 0; side < 2; ++side) {
        const platform::SpriteImages large = Sprite(QString::fromUtf8(largeNames[side]), QSize(266, 145));
        const QRect first(QPoint(0, 0), kLargeView);
        picSprite[side]->SetPicture(Part(large.figure, first));
        picMask[side]->SetPicture(Part(large.mask, first));
        picSprite[side + 2]->SetPicture(Part(large.figure, first.translated(kLargeView.width(), 0)));
    }
    picHidden->SetPicture(Art(QStringLiteral("panels"), QSize(433, 61)));
    picDest->SetPicture(Art(QStringLiteral("panel_left"), kPanel));
    picDest2->SetPicture(Art(QStringLiteral("panel_right"), kPanel));
}

// The pictures at the new pixel ratio, and the scene from its start: the
// stage's and the panels' own pictures, the script at its first tick. A
// scene standing still stays still.
void FWantMore::ZoomChanged() {
    platform::ArtDialog::ZoomChanged();
    if (platform::BlitPixelRatio() == picturesRatio_) return;
    DrawPictures();
    scene = Scene{};
    tmrUFO->SetEnabled(false);
    smTimer->SetEnabled(tmrAnim->Enabled());
    for (PictureBox* shown : {picForm, picDest, picDest2}) shown->Refresh();
}

void FWantMore::Form_Load() {
    using modGlobal::goMidi;
    screens::LoadWithBackground(*this);
    for (platform::PlatformTimer* timer : {tmrMidi, smTimer, tmrAnim}) timer->SetEnabled(true);
    modSoundLib::PlaySoundFile("PENGUINSOUNDS", false, false);
    if (!goMidi) return;
    goMidi->SetLoopMusic(true);
    modGlobal::PlayTune(*this, "sweetone.mid");
}

void FWantMore::StopScene() {
    modSoundLib::StopSounds();
    for (platform::PlatformTimer* timer : {tmrMidi, tmrUFO, tmrAnim, smTimer}) timer->SetEnabled(false);
    modGlobal::StopTune(*this);
}

// The scene stands still where it is; only a new opening starts it again.
void FWantMore::cmdVisitWebPage_Click() {
    StopScene();
    screens::OpenWebPage(*this);
}

void FWantMore::Form_QueryUnload() { StopScene(); }

void FWantMore::done(int result) {
    Form_QueryUnload();
    platform::ArtDialog::done(result);
}

void FWantMore::ShowPanelFrame(PictureBox& panel, int frame) {
    BitBlt(panel.hDC(), 0, 0, kPanel.width(), kPanel.height(), picHidden->hDC(), frame * kPanelFrameWidth, 0, SRCCOPY);
    panel.Refresh();
}

// The large figure looks in at one side of the stage: the first tick of a
// look keeps the ground it covers, which goes back when the look ends.
void FWantMore::DrawLargeFigure(int side) {
    PictureBox& mask = *picMask[side];
    PictureBox& figure = *picSprite[side + (scene.otherView ? 2 : 0)];
    const QPoint at = kLargeFigure[side];
    const int w = mask.Width();
    const int h = mask.Height();
    BitBlt(picWorkArea->hDC(), 0, 0, w, h, picForm->hDC(), at.x(), at.y(), SRCCOPY);
    if (!scene.largeSaved) {
        BitBlt(picBackGround->hDC(), 0, 0, w, h, picForm->hDC(), at.x(), at.y(), SRCCOPY);
        scene.largeSaved = true;
    }
    modAnimation::Stencil(*picWorkArea, 0, 0, w, h, mask, 0, figure, 0);
    BitBlt(picForm->hDC(), at.x(), at.y(), w, h, picWorkArea->hDC(), 0, 0, SRCCOPY);
    picForm->Refresh();
}

// The clock: six states of whole passes of eight frames. The panels run
// their frames or hold one, the large figure looks in from the left and then
// the right, and once a cycle the small figure gets its cue.
void FWantMore::tmrAnim_Timer() {
    Scene& s = scene;
    if (s.frame == 0) ++s.pass;
    switch (s.state) {
        case 1:
        case 5:
            if (s.firstPassOver) {  // the first pass of the form leaves the panels' own pictures
                ShowPanelFrame(*picDest, s.still);
                ShowPanelFrame(*picDest2, s.still);
            }
            if (s.state == 1) {
                s.cue = true;
            } else if (s.cue) {
                if (++s.act % 4 == 0) s.act = 1;
                s.actGo = true;
                s.cue = false;
            }
            break;
        case 2:
        case 4:
            ShowPanelFrame(*picDest, s.frame);
            s.still = static_cast<std::int16_t>((s.still + 1) % kFramesPerPass);
            if (s.state == 4) DrawLargeFigure(1);
            break;
        case 3:
            DrawLargeFigure(0);
            ShowPanelFrame(*picDest2, s.frame);
            break;
        default:  // 6
            ShowPanelFrame(*picDest, s.frame);
            if (s.frame > 3) s.dest2Running = true;
            if (s.dest2Running) ShowPanelFrame(*picDest2, s.frame <= 3 ? s.frame + 4 : s.frame - 4);
            s.still = 1;
            break;
    }
    if (++s.frame < kFramesPerPass) return;
    s.frame = 0;
    s.firstPassOver = true;
    if (s.pass < kPasses[s.state]) return;

    if (s.state == 3 || s.state == 4) {
        const int side = s.state - 3;
        const QPoint at = kLargeFigure[side];
        BitBlt(picForm->hDC(), at.x(), at.y(), picMask[side]->Width(), picMask[side]->Height(), picBackGround->hDC(), 0,
               0, SRCCOPY);
        picForm->Refresh();
        s.largeSaved = false;
    }
    if (s.state == 3) s.still = 0;
    if (s.state == 4) s.otherView = !s.otherView;
    if (s.state == 6) s.dest2Running = false;
    s.state = static_cast<std::int16_t>(s.state == 6 ? 1 : s.state + 1);
    s.pass = 0;
}
