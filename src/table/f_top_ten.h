// FTopTen: the ten best results on this database, read from the table, with
// the new score's row marked. Shown modally, after a new entry or from the
// menu (giTopTenRow 99); each opening builds a fresh form.
#pragma once

#include <array>

#include "platform/display/art_dialog.h"
#include "platform/display/platform_timer.h"
#include "storage/top_ten.h"

class QLabel;
class QPushButton;

class FTopTen : public platform::ArtDialog {
    Q_OBJECT
public:
    explicit FTopTen(QWidget* parent = nullptr);

    // Empties the table; a failed open sets gbDbFailed.
    static void ClearTopTen();

    std::array<QLabel*, 10> lblNo;
    std::array<QLabel*, 10> lblPlayer;
    std::array<QLabel*, 10> lblScore;
    std::array<QLabel*, 10> lblSkilllevel;
    std::array<QLabel*, 10> lblDate;
    std::array<QPushButton*, 2> cmdTopTen;  // "&OK", "&Clear"
    platform::PlatformTimer tmrTopTen;

protected:
    bool event(QEvent* event) override;
    // Every way the form closes ends here: its unload.
    void done(int result) override;

private:
    void Form_Load();
    void Form_Activate();
    void TopTenLoad();
    void ShowTopTenRows();
    void ClearTopTenRows();
    void BlankRow(int row);
    void cmdTopTen_Click(int index);
    void tmrTopTen_Timer();

    storage::TopTenRows maTopTen;
    int miTimerTicks = 0;
};
