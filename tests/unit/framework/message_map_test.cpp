// Tables without windows: which row a message finds, what its handler receives, and what follows the handler.
#include "framework/window.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

constexpr UINT kMsgWithParameters = WM_USER + 10;
constexpr UINT kMsgBare = WM_USER + 20;
constexpr UINT kMsgThen = WM_USER + 21;
constexpr UINT kMsgReply = WM_USER + 22;
constexpr UINT kMsgResult = WM_APP + 1;

// Records what its handlers receive.
class CProbe : public CWindow {
  public:
    std::string log;
    Then then = Then::done;
    Reply reply;
    HBRUSH brush = nullptr;

    Reply OnMessage(const Message& message) override;

  protected:
    template <class... Values>
    void Log(const char* name, Values... values) {
        std::ostringstream text;
        text << name;
        ((text << ' ' << values), ...);
        log += text.str() + ";";
    }
    static long long Number(HWND hwnd) { return static_cast<long long>(reinterpret_cast<INT_PTR>(hwnd)); }

    void OnUser(WPARAM w, LPARAM l) { Log("user", w, l); }
    void OnBare() { Log("bare"); }
    Then OnThen() {
        Log("then");
        return then;
    }
    Reply OnReply() { return reply; }
    LRESULT OnResult() { return -5; }
    LRESULT OnCreate(const CREATESTRUCTW& create) {
        Log("create", create.cx);
        return -1;
    }
    void OnTimer(UINT_PTR id) { Log("timer", id); }
    void OnDrawItem(UINT id, const DRAWITEMSTRUCT& item) { Log("draw", id, item.itemState); }
    void OnMeasureItem(UINT id, MEASUREITEMSTRUCT& item) {
        Log("measure", id);
        item.itemHeight = 17;
    }
    void OnButtonDown(POINT at) { Log("down", at.x, at.y); }
    void OnMove(POINT at) { Log("move", at.x, at.y); }
    void OnSize(UINT kind, SIZE size) { Log("size", kind, size.cx, size.cy); }
    void OnKeyDown(UINT key) { Log("keydown", key); }
    void OnKeyUp(UINT key) { Log("keyup", key); }
    void OnHelp(const HELPINFO* info) { Log("help", info != nullptr); }
    void OnErase(HDC) { Log("erase"); }
    void OnPaint() { Log("paint"); }
    void OnSetFocus(HWND other) { Log("focus", Number(other)); }
    void OnActivate(UINT state, HWND other) { Log("activate", state, Number(other)); }
    void OnHotKey(int id, UINT modifiers, UINT key) { Log("hotkey", id, modifiers, key); }
    HBRUSH OnColors(HDC, HWND control) {
        Log("colors", Number(control));
        return brush;
    }
    void OnExit() { Log("exit"); }
    void OnNameChange() { Log("name"); }
    void OnTap(const NMHDR& header) { Log("tap", header.idFrom); }
    LRESULT OnExpanding(const NMTREEVIEWW& notice) {
        Log("expanding", notice.action);
        return TRUE;
    }
    void OnReturnKey() { Log("return"); }
};

Reply CProbe::OnMessage(const Message& message) {
    using On = HandlersOf<CProbe>;
    static constexpr MessageRow rows[] = {
        On::message<kMsgWithParameters, &CProbe::OnUser>,
        On::message<kMsgBare, &CProbe::OnBare>,
        On::message<kMsgThen, &CProbe::OnThen>,
        On::message<kMsgReply, &CProbe::OnReply>,
        On::message<kMsgResult, &CProbe::OnResult>,
        On::message<WM_CREATE, &CProbe::OnCreate>,
        On::message<WM_TIMER, &CProbe::OnTimer>,
        On::message<WM_DRAWITEM, &CProbe::OnDrawItem>,
        On::message<WM_MEASUREITEM, &CProbe::OnMeasureItem>,
        On::message<WM_LBUTTONDOWN, &CProbe::OnButtonDown>,
        On::message<WM_MOVE, &CProbe::OnMove>,
        On::message<WM_SIZE, &CProbe::OnSize>,
        On::message<WM_KEYDOWN, &CProbe::OnKeyDown>,
        On::message<WM_KEYUP, &CProbe::OnKeyUp>,
        On::message<WM_HELP, &CProbe::OnHelp>,
        On::message<WM_ERASEBKGND, &CProbe::OnErase>,
        On::message<WM_PAINT, &CProbe::OnPaint>,
        On::message<WM_SETFOCUS, &CProbe::OnSetFocus>,
        On::message<WM_ACTIVATE, &CProbe::OnActivate>,
        On::message<WM_HOTKEY, &CProbe::OnHotKey>,
        On::colors<&CProbe::OnColors>,
        On::command<32827, &CProbe::OnExit>,
        On::control<1088, EN_CHANGE, &CProbe::OnNameChange>,
        On::notify<1070, NM_CLICK, &CProbe::OnTap>,
        On::notify<1039, TVN_ITEMEXPANDINGW, &CProbe::OnExpanding>,
        On::notify<kAnySender, NM_RETURN, &CProbe::OnReturnKey>,
    };
    return Dispatch<rows, CWindow>(*this, message);
}

HWND Window(INT_PTR number) {
    return reinterpret_cast<HWND>(number);
}

template <class Record>
LPARAM Address(Record& record) {
    return reinterpret_cast<LPARAM>(&record);
}

class MessageMap : public ::testing::Test {
  protected:
    Reply Send(UINT message, WPARAM w = 0, LPARAM l = 0) { return probe.OnMessage({message, w, l}); }

    CProbe probe;
};

TEST_F(MessageMap, MessageWithoutARowIsLeftToTheDefault) {
    EXPECT_FALSE(Send(WM_NULL));
    EXPECT_FALSE(Send(WM_USER + 11, 1, 2));
    EXPECT_FALSE(Send(WM_LBUTTONUP));
    EXPECT_EQ("", probe.log);
}

TEST_F(MessageMap, PrivateMessageCarriesItsParametersOrNone) {
    EXPECT_EQ(Reply(0), Send(kMsgWithParameters, 0xFFFFFFFFu, -7));
    EXPECT_EQ(Reply(0), Send(kMsgBare, 1, 2));
    EXPECT_EQ("user 4294967295 -7;bare;", probe.log);
}

TEST_F(MessageMap, ThenSaysWhetherTheDefaultFollows) {
    probe.then = Then::done;
    EXPECT_EQ(Reply(0), Send(kMsgThen));
    probe.then = Then::defaultHandling;
    EXPECT_EQ(Reply(), Send(kMsgThen));
    EXPECT_EQ("then;then;", probe.log);
}

TEST_F(MessageMap, ResultsArriveUnchanged) {
    EXPECT_EQ(Reply(-5), Send(kMsgResult));
    EXPECT_EQ(Reply(), Send(kMsgReply));
    probe.reply = 0;
    EXPECT_EQ(Reply(0), Send(kMsgReply));
    probe.reply = 12345;
    EXPECT_EQ(Reply(12345), Send(kMsgReply));
}

TEST_F(MessageMap, CreateCarriesItsRecordAndMayRefuse) {
    CREATESTRUCTW create = {};
    create.cx = 240;
    EXPECT_EQ(Reply(-1), Send(WM_CREATE, 0, Address(create)));
    EXPECT_EQ("create 240;", probe.log);
}

TEST_F(MessageMap, TimerCarriesItsId) {
    EXPECT_EQ(Reply(0), Send(WM_TIMER, 10));
    EXPECT_EQ("timer 10;", probe.log);
}

TEST_F(MessageMap, OwnerDrawnItemsCarryIdAndRecord) {
    DRAWITEMSTRUCT item = {};
    item.itemState = ODS_SELECTED | ODS_FOCUS;
    EXPECT_EQ(Reply(TRUE), Send(WM_DRAWITEM, 1601, Address(item)));
    MEASUREITEMSTRUCT measure = {};
    EXPECT_EQ(Reply(TRUE), Send(WM_MEASUREITEM, 1602, Address(measure)));
    EXPECT_EQ("draw 1601 17;measure 1602;", probe.log);
    EXPECT_EQ(17u, measure.itemHeight);
}

TEST_F(MessageMap, PointsMayBeNegative) {
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(239, 179));
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(-1, -32768));
    Send(WM_MOVE, 0, MAKELPARAM(-3, 26));
    EXPECT_EQ("down 239 179;down -1 -32768;move -3 26;", probe.log);
}

TEST_F(MessageMap, SizesAreNeverNegative) {
    Send(WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(240, 40000));
    EXPECT_EQ("size 2 240 40000;", probe.log);
}

TEST_F(MessageMap, KeysCarryTheVirtualKey) {
    Send(WM_KEYDOWN, VK_RETURN, 1);
    Send(WM_KEYUP, 0xC1, 1);
    EXPECT_EQ("keydown 13;keyup 193;", probe.log);
}

TEST_F(MessageMap, HelpMayComeWithoutARecord) {
    HELPINFO info = {};
    EXPECT_EQ(Reply(TRUE), Send(WM_HELP));
    EXPECT_EQ(Reply(TRUE), Send(WM_HELP, 0, Address(info)));
    EXPECT_EQ("help 0;help 1;", probe.log);
}

TEST_F(MessageMap, ErasedBackgroundSaysSo) {
    EXPECT_EQ(Reply(TRUE), Send(WM_ERASEBKGND));
    EXPECT_EQ(Reply(0), Send(WM_PAINT));
    EXPECT_EQ("erase;paint;", probe.log);
}

TEST_F(MessageMap, FocusActivationAndHotKeys) {
    Send(WM_SETFOCUS, 0x1234);
    Send(WM_ACTIVATE, MAKEWPARAM(WA_CLICKACTIVE, 1), 0x77);
    Send(WM_HOTKEY, 195, MAKELPARAM(MOD_WIN, 195));
    EXPECT_EQ("focus 4660;activate 2 119;hotkey 195 8 195;", probe.log);
}

TEST_F(MessageMap, ColorsAnswerForEveryKindOfControl) {
    EXPECT_EQ(Reply(), Send(WM_CTLCOLORSTATIC, 0, 1103));
    probe.brush = reinterpret_cast<HBRUSH>(Window(0x99));
    EXPECT_EQ(Reply(0x99), Send(WM_CTLCOLORMSGBOX, 0, 1));
    EXPECT_EQ(Reply(0x99), Send(WM_CTLCOLORDLG, 0, 2));
    EXPECT_EQ(Reply(), Send(WM_CTLCOLORSTATIC + 1, 0, 3));
    EXPECT_EQ("colors 1103;colors 1;colors 2;", probe.log);
}

TEST_F(MessageMap, CommandAnswersMenuAcceleratorAndButton) {
    const LPARAM button = reinterpret_cast<LPARAM>(Window(0x55));
    EXPECT_TRUE(Send(WM_COMMAND, MAKEWPARAM(32827, 0)));
    EXPECT_TRUE(Send(WM_COMMAND, MAKEWPARAM(32827, 1)));  // accelerator
    EXPECT_TRUE(Send(WM_COMMAND, MAKEWPARAM(32827, BN_CLICKED), button));
    EXPECT_FALSE(Send(WM_COMMAND, MAKEWPARAM(32827, BN_SETFOCUS), button));
    EXPECT_FALSE(Send(WM_COMMAND, MAKEWPARAM(32828, 0)));
    EXPECT_EQ("exit;exit;exit;", probe.log);
}

TEST_F(MessageMap, ControlAnswersOneNotification) {
    const LPARAM edit = reinterpret_cast<LPARAM>(Window(0x55));
    EXPECT_TRUE(Send(WM_COMMAND, MAKEWPARAM(1088, EN_CHANGE), edit));
    EXPECT_FALSE(Send(WM_COMMAND, MAKEWPARAM(1088, EN_KILLFOCUS), edit));
    EXPECT_FALSE(Send(WM_COMMAND, MAKEWPARAM(1089, EN_CHANGE), edit));
    EXPECT_EQ("name;", probe.log);
}

TEST_F(MessageMap, NotifyAnswersOneSenderAndCode) {
    NMHDR tap = {nullptr, 1070, static_cast<UINT>(NM_CLICK)};
    EXPECT_TRUE(Send(WM_NOTIFY, 1070, Address(tap)));
    tap.idFrom = 1071;
    EXPECT_FALSE(Send(WM_NOTIFY, 1071, Address(tap)));
    NMTREEVIEWW tree = {};
    tree.hdr = {nullptr, 1039, static_cast<UINT>(TVN_ITEMEXPANDINGW)};
    tree.action = TVE_EXPAND;
    EXPECT_EQ(Reply(TRUE), Send(WM_NOTIFY, 1039, Address(tree)));
    EXPECT_EQ("tap 1070;expanding 2;", probe.log);
}

TEST_F(MessageMap, NotifyOfAnySender) {
    for (const UINT_PTR id : {0u, 5u, 1070u}) {
        NMHDR header = {nullptr, id, static_cast<UINT>(NM_RETURN)};
        EXPECT_TRUE(Send(WM_NOTIFY, id, Address(header)));
    }
    EXPECT_EQ("return;return;return;", probe.log);
}

TEST_F(MessageMap, AnySenderIsNoWildcardForCommands) {
    EXPECT_FALSE(Send(WM_COMMAND, MAKEWPARAM(7, 0)));
    EXPECT_EQ("", probe.log);
}

// A class over another: its rows come first, and what they leave open goes on to the base class's table.
class CDerivedProbe : public CProbe {
  public:
    Then thenOfDerived = Then::defaultHandling;

    Reply OnMessage(const Message& message) override {
        using On = HandlersOf<CDerivedProbe>;
        static constexpr MessageRow rows[] = {
            On::message<WM_TIMER, &CDerivedProbe::OnDerivedTimer>,
            On::message<WM_CHAR, &CDerivedProbe::OnBare>,  // a handler of the base class
        };
        return Dispatch<rows, CProbe>(*this, message);
    }

  private:
    Then OnDerivedTimer() {
        Log("derived");
        return thenOfDerived;
    }
};

TEST(MessageMapChain, BaseTableFollows) {
    CDerivedProbe probe;
    EXPECT_EQ(Reply(0), probe.OnMessage({WM_TIMER, 3, 0}));
    probe.thenOfDerived = Then::done;
    EXPECT_EQ(Reply(0), probe.OnMessage({WM_TIMER, 3, 0}));
    EXPECT_EQ(Reply(0), probe.OnMessage({kMsgBare, 0, 0}));
    EXPECT_EQ(Reply(0), probe.OnMessage({WM_CHAR, 'a', 0}));
    EXPECT_EQ(Reply(), probe.OnMessage({WM_NULL, 0, 0}));
    EXPECT_EQ("derived;timer 3;derived;bare;bare;", probe.log);
}

}  // namespace
