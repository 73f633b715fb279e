// FDovrin: the celebration of a high score. A stage covers the table and
// three balloons rise over it in three lanes, one after another, again and
// again. Each lane keeps the stage's clean background under its figure on a
// surface of its own, so that the stage itself is touched by one blit a
// lane a tick and never flickers. After a change of zoom the pictures are
// drawn again at the new pixel ratio and the balloons go on from where they
// stand.
#include <functional>
#include <utility>

#include <QLabel>

#include "engine/mod_global.h"
#include "platform/display/do_events.h"
#include "platform/display/pictures.h"
#include "platform/display/twips.h"
#include "shell/f_dovrin.h"
#include "sound/mod_global_music.h"

using namespace modGlobal;
using platform::BitBlt;
using platform::PictureBox;
using platform::SRCAND;
using platform::SRCCOPY;
using platform::SRCPAINT;

namespace {

constexpr QSize kStage{635, 456};
constexpr std::array<QSize, 3> kSpriteSizes = {{{70, 209}, {72, 183}, {78, 208}}};
constexpr QSize kWorkArea{78, 219};
constexpr QSize kBackground{78, 209};

constexpr std::int32_t kStartY = 500;  // below the stage, so a balloon rises into view
constexpr std::int32_t kRise = 5;
constexpr std::int32_t kWipeY = -200;

// Each lane's band of X, kept one widest figure apart from the next.
struct Band {
    std::int32_t from, to;
};
constexpr std::array<Band, 3> kBands = {{{1, 134}, {212, 346}, {425, 560}}};

// A lane starts once lane 0 has risen past its line; lane 0 at once.
constexpr std::array<std::int32_t, 3> kStartBelow = {0, 466, 233};

// Calls back after a change of zoom, once the picture boxes have followed
// it; it lives as long as the form that owns it.
class OnZoomChanged : public QObject, public platform::ZoomFollower {
public:
    OnZoomChanged(QObject* owner, std::function<void()> changed)
        : QObject(owner), ZoomFollower(Stage::Form), changed_(std::move(changed)) {}
    void ZoomChanged() override { changed_(); }

private:
    std::function<void()> changed_;
};

}  // namespace

void FDovrin::CreateSprites() {
    QWidget* canvas = centralWidget();
    picHighScore = new PictureBox(canvas, kStage);
    picHighScore->setGeometry(platform::TwipsRect(15, 0, 9615, 6735));
    picHighScore->hide();
    for (int kind = 0; kind < 3; ++kind) {
        picSprite[kind] = new PictureBox(this, kSpriteSizes[kind]);
        picMask[kind] = new PictureBox(this, kSpriteSizes[kind]);
        picWorkArea[kind] = new PictureBox(this, kWorkArea);
        picBackground[kind] = new PictureBox(this, kBackground);
        for (PictureBox* box : {picSprite[kind], picMask[kind], picWorkArea[kind], picBackground[kind]}) box->hide();
    }
    lblLeft = new QLabel(picHighScore);
    lblLeft->setGeometry(platform::TwipsRect(8640, 3600, 615, 375));
    lblCenter = new QLabel(picHighScore);
    lblCenter->setGeometry(platform::TwipsRect(8640, 3960, 615, 375));
    lblLeft->hide();
    lblCenter->hide();

    tmrSprites->SetEnabled(false);
    tmrSprites->SetInterval(10);
    connect(tmrSprites, &platform::PlatformTimer::Timer, this, &FDovrin::tmrSprites_Timer);
    tmrHighScore->SetEnabled(false);
    tmrHighScore->SetInterval(5000);
    connect(tmrHighScore, &platform::PlatformTimer::Timer, this, &FDovrin::tmrHighScore_Timer);

    // Pictures not drawn yet are drawn at the new ratio when first needed.
    new OnZoomChanged(this, [this] {
        if (!spriteArtLoaded_) return;
        spriteArtLoaded_ = false;
        LoadSpriteArt();
        // The new stage is bare: each balloon on its way is put back where it
        // stands, over the ground the new stage has there, which its lane
        // keeps for the next tick as DrawLane does.
        for (int lane = 0; lane < 3; ++lane) {
            const SpriteRecord& sprite = maSprites[lane];
            if (!sprite.Active || sprite.Fresh) continue;
            const int kind = sprite.Kind;
            const int width = picSprite[kind]->Width();
            const int height = picSprite[kind]->Height();
            QImage* work = picWorkArea[lane]->hDC();
            QImage* ground = picBackground[lane]->hDC();
            BitBlt(ground, 0, 0, width, height, picHighScore->hDC(), sprite.X, sprite.Y, SRCCOPY);
            BitBlt(work, 0, 0, width, height, ground, 0, 0, SRCCOPY);
            BitBlt(work, 0, 0, width, height, picMask[kind]->hDC(), 0, 0, SRCAND);
            BitBlt(work, 0, 0, width, height, picSprite[kind]->hDC(), 0, 0, SRCPAINT);
            BitBlt(picHighScore->hDC(), sprite.X, sprite.Y, width, height, work, 0, 0, SRCCOPY);
        }
        picHighScore->Refresh();
    });
}

// The celebration's pictures are drawn the first time they are needed: a
// fifth of the start-up went into them, for a moment that most runs never see.
void FDovrin::LoadSpriteArt() {
    if (spriteArtLoaded_) return;
    spriteArtLoaded_ = true;
    picHighScore->SetPicture(platform::LoadArtImage(QStringLiteral("high_score"), kStage));
    for (int kind = 0; kind < 3; ++kind) {
        const platform::SpriteImages art =
            platform::LoadSpriteImages(QStringLiteral("balloon_%1").arg(kind), kSpriteSizes[kind]);
        picSprite[kind]->SetPicture(art.figure);
        picMask[kind]->SetPicture(art.mask);
    }
}

void FDovrin::CelebrateHighScore() {
    LoadSpriteArt();
    PlayTune(*this, "Circus.mid");
    picHighScore->show();
    picHighScore->raise();
    tmrHighScore->SetEnabled(true);
    tmrSprites->SetEnabled(true);
    SetMenusEnabled(false);
    // The counter is never reset, so a second celebration in the same run
    // never sees it reach five again and waits on: the program has always
    // done so. Closing the window ends the wait, which would otherwise
    // outlive it.
    const platform::ZoomHold celebrating;
    while (!mbHighScoreDone && !unloading_) platform::DoEvents();
    mbHighScoreDone = false;
}

bool FDovrin::HighScoreVisible() const { return picHighScore->isVisibleTo(this); }

void FDovrin::HideHighScore() {
    tmrMidi->SetEnabled(false);
    tmrSprites->SetEnabled(false);
    tmrHighScore->SetEnabled(false);
    picHighScore->hide();
}

void FDovrin::StopFanfareTune() { StopTune(*this); }

void FDovrin::tmrHighScore_Timer() {
    ++miHighScoreTicks;
    if (miHighScoreTicks == 5) mbHighScoreDone = true;
}

void FDovrin::tmrSprites_Timer() {
    LoadSpriteArt();
    for (int lane = 0; lane < 3; ++lane) {
        SpriteRecord& sprite = maSprites[lane];
        if (sprite.Active) {
            sprite.Y -= kRise;
        } else if (lane == 0 || maSprites[0].Y < kStartBelow[lane]) {
            sprite.Active = true;
            sprite.Kind = static_cast<std::int16_t>(lane);
            sprite.X = RandomInRange(kBands[lane].from, kBands[lane].to);
            sprite.Y = kStartY;
        }
    }
    for (int lane = 0; lane < 3; ++lane) {
        SpriteRecord& sprite = maSprites[lane];
        if (!sprite.Fresh) continue;
        sprite.X = RandomInRange(kBands[lane].from, kBands[lane].to);
        sprite.Y = kStartY;
        sprite.Kind = static_cast<std::int16_t>((sprite.Kind + 1) % 3);
        // Two hidden labels take these writes; nothing reads them.
        if (lane == 0) {
            lblLeft->setText(QString::number(sprite.X + 78));
            lblLeft->repaint();
        } else if (lane == 1) {
            lblCenter->setText(QString::number(sprite.X));
            lblCenter->repaint();
        }
    }
    for (SpriteRecord& sprite : maSprites)
        if (sprite.Y == kWipeY) sprite.Erase = true;
    for (int lane = 0; lane < 3; ++lane) {
        if (lane > 0 && !maSprites[lane].Active) return;  // the later lanes wait too
        DrawLane(lane);
    }
}

// Five blits: the new place with five rows more, the old background put back
// over the old figure, the clean background kept, the figure stencilled in,
// and all of it onto the stage at once.
void FDovrin::DrawLane(int lane) {
    SpriteRecord& sprite = maSprites[lane];
    const int kind = sprite.Kind;
    const int width = picSprite[kind]->Width();
    const int height = picSprite[kind]->Height();
    PictureBox* work = picWorkArea[lane];
    PictureBox* background = picBackground[lane];

    BitBlt(work->hDC(), 0, 0, width, height + kRise, picHighScore->hDC(), sprite.X, sprite.Y, SRCCOPY);
    work->Refresh();
    if (!sprite.Fresh) {
        BitBlt(work->hDC(), 0, kRise, width, height, background->hDC(), 0, 0, SRCCOPY);
        work->Refresh();
    }
    BitBlt(background->hDC(), 0, 0, width, height, work->hDC(), 0, 0, SRCCOPY);
    background->Refresh();
    if (!sprite.Erase) {
        BitBlt(work->hDC(), 0, 0, width, height, picMask[kind]->hDC(), 0, 0, SRCAND);
        work->Refresh();
        BitBlt(work->hDC(), 0, 0, width, height, picSprite[kind]->hDC(), 0, 0, SRCPAINT);
        work->Refresh();
    }
    BitBlt(picHighScore->hDC(), sprite.X, sprite.Y, width, height + kRise, work->hDC(), 0, 0, SRCCOPY);
    picHighScore->Refresh();
    if (sprite.Erase) {
        sprite.Erase = false;
        sprite.Fresh = true;
    } else {
        sprite.Fresh = false;
    }
}
