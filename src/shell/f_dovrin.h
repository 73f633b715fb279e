// FDovrin: the main form, the card table. It owns the game and is the table
// the game is played on; its handlers are the game's control flow. The file
// is split by concern:
//   shell/f_dovrin.cpp          the controls and their places
//   shell/f_dovrin_surface.cpp  painting, seat panels, card flights, forms of a hand's end
//   shell/f_dovrin_input.cpp    mouse, keys and the hover boxes
//   shell/f_dovrin_life.cpp     load, first activation, shut-down
//   shell/f_dovrin_menus.cpp    the menu bar and the options
//   shell/f_dovrin_sprites.cpp  the celebration of a high score
//   shell/f_dovrin_help.cpp     the rule book panel
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <QMainWindow>
#include <QPointer>

#include "engine/game_state.h"
#include "platform/display/form_surface.h"
#include "platform/display/picture_box.h"
#include "link/main_form_link.h"
#include "platform/display/platform_timer.h"
#include "platform/display/sprite_record.h"
#include "platform/display/zoom.h"
#include "storage/top_ten.h"

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class FAnimate;
class TableCanvas;

// A rounded rectangle with a solid fill or none, as the table's shapes are.
class ShapeWidget : public QWidget {
    Q_OBJECT
public:
    ShapeWidget(QWidget* parent, bool filled);
    std::int32_t FillColor() const { return fillColor_; }
    void SetFillColor(std::int32_t bgr);  // 0xBBGGRR

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool filled_;
    std::int32_t fillColor_ = 0;
};

class FDovrin : public QMainWindow,
                public Table,
                public MainFormLink,
                public TuneForm {
    Q_OBJECT
public:
    explicit FDovrin(QWidget* parent = nullptr);
    ~FDovrin() override;

    // The window's size in the design's pixels, its menu bar included, for
    // the zoom to fit before the window exists.
    static QSize DesignSize();

    Game& game() { return game_; }
    platform::FormSurface& surface() { return surface_; }

    // --- the controls of the table (seat-indexed arrays) ---
    std::array<ShapeWidget*, 4> shpPlayer{};
    std::array<QLabel*, 4> lblPlayer{};
    std::array<QLabel*, 4> lblCardNo{};
    std::array<QLabel*, 4> imgSad{};
    std::array<QLabel*, 4> imgSuit{};
    std::array<QLabel*, 4> lblAmt{};
    std::array<QLabel*, 4> lblCardsLeft{};
    std::array<ShapeWidget*, 4> shpRect{};
    QLabel* lblPot = nullptr;
    QPushButton* cmdWantMore = nullptr;
    QPushButton* cmdUser = nullptr;
    platform::PlatformTimer tmrCount;
    platform::PlatformTimer* tmrMidi = new platform::PlatformTimer(this);  // watches the fanfare's tune

    // --- the rule book (shell/f_dovrin_help.cpp) ---
    QWidget* picHelp = nullptr;
    QPushButton* cmdHelp = nullptr;
    std::array<QLabel*, 25> lblHelp{};  // 13 to 24 are the rule book's
    std::vector<QLabel*> imgHelp;
    void cmdHelp_Click();
    void mnuHelp_Click(int index);

    // --- the celebration of a high score (shell/f_dovrin_sprites.cpp) ---
    platform::PictureBox* picHighScore = nullptr;  // the stage
    std::array<platform::PictureBox*, 3> picSprite{};
    std::array<platform::PictureBox*, 3> picMask{};
    std::array<platform::PictureBox*, 3> picWorkArea{};
    std::array<platform::PictureBox*, 3> picBackground{};
    QLabel* lblLeft = nullptr;    // hidden: written and never read
    QLabel* lblCenter = nullptr;
    std::array<SpriteRecord, 4> maSprites{};
    platform::PlatformTimer* tmrSprites = new platform::PlatformTimer(this);
    platform::PlatformTimer* tmrHighScore = new platform::PlatformTimer(this);
    std::int16_t miHighScoreTicks = 0;
    bool mbHighScoreDone = false;
    void tmrSprites_Timer();
    void tmrHighScore_Timer();
    // The fanfare: the tune, the stage and its balloons, the menus off, and
    // the wait until the celebration has run its time.
    void CelebrateHighScore();

    // --- the menu bar ---
    QMenu* mnuFileH = nullptr;
    QMenu* mnuUserH = nullptr;
    QMenu* mnuOptionH = nullptr;
    QMenu* mnuHelpH = nullptr;
    std::array<QAction*, 2> mnuFile{};
    std::array<QAction*, 2> mnuUser{};
    std::array<QAction*, 7> mnuOption{};
    std::array<QAction*, 3> mnuHelp{};
    QAction* mnuSendScore = nullptr;
    QAction* mnuTopTen = nullptr;
    QAction* mnuWinnings = nullptr;
    QAction* mnuAnim = nullptr;
    QAction* mnuDBPath = nullptr;
    QAction* mnuAbout = nullptr;
    QAction* mnuDistribute = nullptr;

    // --- life cycle (shell/f_dovrin_life.cpp) ---
    // A load that fails ends the program at once.
    void Form_Load();
    void Form_Activate();
    void Form_QueryUnload();
    void StartGame(bool newGame);
    void ChangeUser(bool pbFirst) override;
    void tmrMidi_Timer();

    // --- menus and options (shell/f_dovrin_menus.cpp) ---
    void mnuFile_Click(int index);
    void mnuOption_Click(int index);
    void mnuAnim_Click();
    void mnuTopTen_Click();
    void mnuUser_Click(int index);
    void mnuWinnings_Click();
    void mnuSendScore_Click();
    void mnuAbout_Click();
    void mnuDistribute_Click();
    void cmdWantMore_Click();

    // --- mouse and keys (shell/f_dovrin_input.cpp) ---
    void Form_MouseDown(float x, float y);
    void Form_Click();
    void Form_MouseMove(float x, float y);
    void cmdUser_Click();
    void Form_KeyDown(int keyCode, int shift);
    void Form_KeyPress(int keyAscii);
    std::int32_t miLastMouseX = 0;  // the last position seen by the hover boxes, twips
    std::int32_t miLastMouseY = 0;

    // --- the table the game is played on (shell/f_dovrin_surface.cpp) ---
    void SetAutoRedraw(bool on) override;
    void Cls() override;
    void DrawCardsPlayed(const std::vector<Card>& cardsPlayed) override;
    void DrawUserHand(const std::vector<Card>& hand, int leftTwips, int topTwips,
                      int spacingTwips) override;
    int FormWidth() const override;
    void PlayFromLeft(Card card) override;
    void PlayFromTop(Card card) override;
    void PlayFromRight(Card card) override;
    void SetTurnMarker(int seat, bool onTurn) override;
    void ShowSeatCard(int seat, Card card) override;
    void ShowSeatSad(int seat, bool clearCardText) override;
    void ClearSeatPanel(int seat) override;
    void SetCardsLeft(int seat, int count) override;
    void SetMoney(int seat, int money) override;
    void SetPot(int pot) override;
    void SetCaption(const std::string& caption) override;
    void PlayEffect(const std::string& key) override;
    void ShowMessage() override;
    void DoEvents() override;
    void ShowHandOver() override;
    void ShowGameOver() override;
    std::string UserTag() const override;
    void SetUserTag(const std::string& tag) override;
    void RecoverDatabase() override;
    void TopTenLoad() override;
    bool CheckHighScore() override;
    void TopTenSave() override;
    void ShowTopTen() override;
    void SetBusyPointer(bool busy) override;
    void ReloadPicture() override;
    void IniSave() override;
    void ShowUserName() override;
    void Unload() override;

    // --- what the dialogs reach ---
    void SetPlayerName(int seat, const std::string& name) override;
    std::string MoneyCaption(int seat) const override;
    void SetWinningsCaption(const std::string& caption) override;
    void SetTopMenusEnabled(bool enabled) override;
    bool HighScoreVisible() const override;
    void HideHighScore() override;
    void StopFanfareTune() override;
    QWidget& Window() override { return *this; }
    platform::PlatformTimer& MidiTimer() override { return *tmrMidi; }

    // --- what the settings reach ---
    void ShowOptionPair(OptionPair pair, bool on) override;
    bool MusicEnabled() const override;
    void SetMusicEnabled(bool enabled) override;
    int WindowState() const override;
    void SetWindowState(int state) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    friend class TableCanvas;
    static constexpr int kTablePicture = 100;  // the table's bitmap among the resources
    void CreateControls();
    void CreateMenus();
    void CreateSprites();
    void CreateHelpPanel();
    void DrawLane(int lane);
    void LoadSpriteArt();
    // Shows the user form with this caption on its second button; an empty
    // caption leaves the form's own.
    void ShowUserName(const std::string& exitCaption);
    void DrawCard(int xPixels, int yPixels, Card card);
    // One flight: waits and draws at each position from start toward the
    // target, then once more exactly on the target.
    void Fly(Card card, int startX, int startY, int stepX, int stepY);

    TableCanvas* canvas_ = nullptr;
    platform::FormSurface surface_;
    // What is drawn straight on the screen can't be drawn again at another
    // zoom: a change waits until the table keeps its drawings again.
    std::optional<platform::ZoomHold> drawingOnScreen_;
    platform::SurfaceOverlay* overControls_ = nullptr;
    Game game_;
    std::string userTag_;  // the Tag of cmdUser
    bool loaded_ = false;  // Form_Load has run
    bool mbActivated = false;
    bool activating_ = false;  // the first activation is under way
    bool unloading_ = false;
    bool spriteArtLoaded_ = false;
    std::int32_t mlCardWidth = 0;   // filled by the card library and read by nothing:
    std::int32_t mlCardHeight = 0;  // the table uses its own card size in twips
    QPointer<FAnimate> animate_;
    storage::TopTenList topTen_;  // the working copy in which a new score is placed
};
