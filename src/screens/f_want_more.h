// FWantMore: the little scene behind "Want More?" on the table. It plays by
// itself until it is closed: a small penguin drifts across the sky and back,
// a UFO lowers its ray and draws four chicks up, an aeroplane tows the
// game's name across, and it all starts over, while two panels at the
// bottom play their loops and a large penguin peeks in from either side.
#pragma once

#include <array>
#include <cstdint>

#include "link/main_form_link.h"
#include "platform/display/art_dialog.h"
#include "platform/display/picture_box.h"
#include "platform/display/platform_timer.h"
#include "platform/display/sprite_record.h"

class QLabel;
class QPushButton;

class FWantMore : public platform::ArtDialog, public TuneForm {
    Q_OBJECT
public:
    explicit FWantMore(QWidget* parent = nullptr);
    QWidget& Window() override { return *this; }
    platform::PlatformTimer& MidiTimer() override { return *tmrMidi; }

    using PictureBox = platform::PictureBox;
    PictureBox* picForm = nullptr;  // the stage
    PictureBox* picUFO = nullptr;
    PictureBox* picUFOMask = nullptr;
    PictureBox* picRay = nullptr;
    PictureBox* picRay_Msk = nullptr;
    PictureBox* picRay_WA = nullptr;
    PictureBox* picRay_BG = nullptr;
    PictureBox* picCaptive = nullptr;
    PictureBox* picCaptiveMsk = nullptr;
    PictureBox* picCaptiveBG = nullptr;
    PictureBox* picCaptiveWA = nullptr;
    PictureBox* picPlaneSpr = nullptr;
    PictureBox* picPlaneMsk = nullptr;
    PictureBox* picAirSignSpr = nullptr;
    PictureBox* picAirSignMsk = nullptr;
    PictureBox* picAirSignWA = nullptr;
    PictureBox* picAirSignBG = nullptr;
    std::array<PictureBox*, 2> picSmSprite{};  // going right, going left
    std::array<PictureBox*, 2> picSmMask{};
    PictureBox* picSmWorkArea = nullptr;
    PictureBox* picSmBackGround = nullptr;
    std::array<PictureBox*, 4> picSprite{};  // left, right, left's other view, right's other view
    std::array<PictureBox*, 2> picMask{};
    PictureBox* picWorkArea = nullptr;
    PictureBox* picBackGround = nullptr;
    PictureBox* picHidden = nullptr;  // the panels' frames
    PictureBox* picDest = nullptr;
    PictureBox* picDest2 = nullptr;
    QLabel* Image2 = nullptr;
    QPushButton* cmdVisitWebPage = nullptr;
    QPushButton* cmdWantMore = nullptr;

    platform::PlatformTimer* tmrUFO = new platform::PlatformTimer(this);
    platform::PlatformTimer* smTimer = new platform::PlatformTimer(this);
    platform::PlatformTimer* tmrAnim = new platform::PlatformTimer(this);
    platform::PlatformTimer* tmrMidi = new platform::PlatformTimer(this);

    // The scene's state, all of it zero when the form is made but for the
    // clock's first state.
    struct Scene {
        // tmrAnim, the clock
        std::int16_t state = 1;
        std::int16_t frame = 0;  // 0 to 7
        std::int16_t pass = 0;   // passes of the state so far
        std::int16_t still = 0;  // the panels' frame between the moving states
        bool firstPassOver = false;
        bool otherView = false;  // the large figure's second view
        bool cue = false;
        bool dest2Running = false;
        bool largeSaved = false;  // the large figure's ground is saved
        // smTimer, the small figure
        std::int16_t act = 0;  // 1 right, 2 left, 3 the UFO's script
        bool actGo = false;
        bool actSetUp = false;
        std::int32_t actTicks = 0;
        std::int16_t direction = 0;  // 0 right down, 1 right up, 2 left down, 3 left up
        SpriteRecord small;
        // tmrUFO, the script
        std::int32_t Ticks = 0;
        SpriteRecord ufoIn, ufoOut, plane;
        std::array<SpriteRecord, 4> captives;
        std::int32_t ufoStep = 0;
        std::int32_t captiveStep = 0;
        bool ufoGone = false;
        std::int32_t hoverTicks = 0;
        std::int32_t rayRows = 0;
        bool rayFirst = false;
        std::int32_t captivePasses = 0;
        bool lastPass = false;
        std::int32_t shrinkRows = 0;
        bool shrinkFirst = false;
        std::int32_t pauseTicks = 0;
        std::int16_t planePace = 0;
        std::int16_t planeDelay = 0;
        bool planeFramesDown = false;
    } scene;

    void tmrAnim_Timer();
    void smTimer_Timer();
    void tmrUFO_Timer();
    void cmdVisitWebPage_Click();

    // Every way of closing comes here: the Close button, Escape and the
    // frame's close box all end in done().
    void done(int result) override;

    // After a change of zoom the scene starts again from its first picture,
    // drawn at the new pixel ratio.
    void ZoomChanged() override;

private:
    void CreatePictures();
    // The pictures of the boxes, at the boxes' pixel ratio.
    void DrawPictures();
    void Form_Load();
    void Form_QueryUnload();
    // The four timers off and the tune stopped.
    void StopScene();
    void ShowPanelFrame(PictureBox& panel, int frame);
    void DrawLargeFigure(int side);
    void MoveSmallFigure();
    void LayGroundUnder(const SpriteRecord& ufo);
    void RunScript();
    bool RaiseCaptives();
    void MovePlaneFrame();

    QImage stageGround;  // the stage's own picture, without a figure
    qreal picturesRatio_ = 0;  // the pixel ratio the pictures are drawn at
};
