// Events for real widgets, as a pen, a mouse and a keyboard give them. Steps run in the program's own thread,
// from a timer, in whatever loop the program is.
#include "tests/contract/QtHand.h"

#include <gmock/gmock.h>

#include <QCalendarWidget>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>
#include <QWheelEvent>
#include <deque>
#include <thread>

#include "platform/qt/Application.h"
#include "platform/qt/EditText.h"
#include "platform/qt/MenuBar.h"
#include "platform/qt/ScreenFrame.h"
#include "platform/qt/Text.h"
#include "platform/qt/TreeWidget.h"
#include "platform/qt/WindowImpl.h"

namespace contract {

namespace {

using platform::Point;
using platform::TreeItem;
using platform::qt::Application;
using platform::qt::TreeNode;
using platform::qt::TreeWidget;

class QtHand : public testing_support::Hand {
  public:
    QtHand() {
        QApplication::setWheelScrollLines(1);  // as on the headless port
        Arm();
    }

    void Then(testing_support::Step step) override { steps_.push_back(std::move(step)); }
    bool IsDone() const override { return steps_.empty() && answers_.empty(); }
    // Of a property sheet the page that is shown.
    platform::Window* Top() override {
        const auto& open = Application::The().OpenOnes();
        if (open.empty()) return nullptr;
        if (open.back().window) return open.back().window;
        const auto* tabs = QApplication::activeModalWidget()->findChild<QTabWidget*>();
        return platform::qt::WindowOf(tabs->currentWidget());
    }

    void PenDown(Point place) override { SendMouse(Page(), QEvent::MouseButtonPress, On(place)); }
    void PenMove(const std::vector<Point>& places) override {
        for (const Point& place : places) SendMouse(Page(), QEvent::MouseMove, On(place));
    }
    void PenUp(Point place) override { SendMouse(Page(), QEvent::MouseButtonRelease, On(place)); }
    void TakePenAway() override {
        QEvent taken(QEvent::UngrabMouse);
        QApplication::sendEvent(Page(), &taken);
    }
    void PressButton(int id) override { Click(Button(id), MiddleOf(*Button(id))); }
    testing_support::ToolState Tool(int command) override {
        const platform::qt::ToolButton* button = Top()->Handle()->screen->Strip().Find(command);
        if (!button) return {};
        return {button->isChecked(), button->IsPressed(), button->isEnabled()};
    }
    void PressKey(platform::Key key) override {
        constexpr Qt::Key kKeys[] = {Qt::Key_Left,   Qt::Key_Up,       Qt::Key_Right,  Qt::Key_Down,
                                     Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home,   Qt::Key_End,
                                     Qt::Key_Return, Qt::Key_Escape,   Qt::Key_Delete, Qt::Key_F2,
                                     Qt::Key_F1,     Qt::Key_F11,      Qt::Key_Q};
        SendKey(kKeys[static_cast<size_t>(key)], Qt::NoModifier);
    }
    void PressShortcut(wchar_t letter) override {
        const bool withShift = letter >= L'a';
        const int key = Qt::Key_A + (letter - (withShift ? L'a' : L'A'));
        SendKey(static_cast<Qt::Key>(key),
                withShift ? Qt::ControlModifier | Qt::ShiftModifier : Qt::ControlModifier);
    }
    void TurnWheel(int notches) override {
        const QPoint place(50, 50);
        QWheelEvent turn(place, Page()->mapToGlobal(place), {}, {0, notches * 120}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Page(), &turn);
    }
    void DropThumb(int position) override {
        auto* bar = Top()->Handle()->frame->findChild<QScrollBar*>();
        bar->setSliderDown(true);
        bar->setSliderPosition(position);
        bar->setSliderDown(false);
    }
    void PressClose() override { Top()->Handle()->frame->close(); }
    void TakeOver() override { Application::The().TakeOverFromOutside(); }
    void PassTime(uint32_t milliseconds) override {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
    uint32_t PixelAt(Point place) override {
        QImage shown(Page()->size(), QImage::Format_RGB32);
        Page()->render(&shown);  // what was asked to be painted is painted
        const platform::Rect pixel = Top()->PageScale().ToSurface({place.x, place.y, 0, 0});
        return Top()->Handle()->shown.pixel(pixel.left, pixel.top) & 0x00FFFFFF;
    }
    void ChangeScale(ink::Scale scale) override { platform::qt::ChangeScale(*Top(), scale); }

    void TypeInto(int item, const std::wstring& text) override {
        if (auto* edit = qobject_cast<QLineEdit*>(Item(item))) {
            edit->selectAll();
            edit->insert(platform::qt::ToQt(text));
        } else if (auto* lines = qobject_cast<QPlainTextEdit*>(Item(item))) {
            lines->selectAll();
            lines->insertPlainText(platform::qt::Shown(text));
        }
    }
    void Choose(int item, int index) override {
        qobject_cast<QComboBox*>(Item(item))->setCurrentIndex(index);
    }
    void Select(int item, size_t start, size_t end) override {
        auto* edit = qobject_cast<QPlainTextEdit*>(Item(item));
        QTextCursor cursor = edit->textCursor();
        cursor.setPosition(static_cast<int>(start));
        cursor.setPosition(static_cast<int>(end), QTextCursor::KeepAnchor);
        edit->setTextCursor(cursor);
    }
    void HoldEdit(int item) override {
        QWidget* held = qobject_cast<QPlainTextEdit*>(Item(item))->viewport();
        const QPoint middle = held->mapFrom(Item(item), MiddleOf(*Item(item)));
        SendMouse(held, QEvent::MouseButtonPress, middle);
        steps_.push_front([this, held, middle] { SendMouse(held, QEvent::MouseButtonRelease, middle); });
        waits_.setRemainingTime(kHoldMilliseconds);
    }
    void DoubleTapDay(int item) override {
        auto* days = Item(item)->findChild<QTableView*>();
        DoubleClick(days->viewport(), days->visualRect(days->currentIndex()).center());
    }
    void ShowPage(size_t index) override {
        QApplication::activeModalWidget()->findChild<QTabWidget*>()->setCurrentIndex(static_cast<int>(index));
    }

    void TapTree(TreeItem item) override { Click(Tree().viewport(), PlaceOf(item)); }
    void DoubleTapTree(TreeItem item) override { DoubleClick(Tree().viewport(), PlaceOf(item)); }
    void HoldTree(TreeItem item) override {
        SendMouse(Tree().viewport(), QEvent::MouseButtonPress, PlaceOf(item), Qt::RightButton);
        SendMouse(Tree().viewport(), QEvent::MouseButtonRelease, PlaceOf(item), Qt::RightButton);
    }
    void CloseBranch(TreeItem item) override {
        const QRect text = Tree().visualItemRect(reinterpret_cast<TreeNode*>(item));
        Click(Tree().viewport(), {text.left() - Tree().indentation() / 2, text.center().y()});
    }
    void PressInTree(platform::Key key) override { PressKey(key); }
    std::optional<std::wstring> EditedLabel() override {
        if (!Tree().Label()) return std::nullopt;
        return platform::qt::FromQt(Tree().Label()->text());
    }
    void EndEditing(const std::optional<std::wstring>& text) override {
        if (text) Tree().Label()->setText(platform::qt::ToQt(*text));
        SendKey(text ? Qt::Key_Return : Qt::Key_Escape, Qt::NoModifier);
    }

    void Answer(platform::MessageAnswer answer) override { answers_.push_back(answer); }
    std::vector<testing_support::SeenBox> Boxes() const override { return boxes_; }
    void ChooseEntries(const testing_support::Texts&) override {}  // no test here opens a menu
    // Of the choosers what they propose, or nothing.
    void ChooseFolder(const std::wstring& folder) override {
        Answer(folder.empty() ? platform::MessageAnswer::Cancel : platform::MessageAnswer::Ok);
    }
    void ChoosePlace(const std::wstring& place) override { ChooseFolder(place); }

  private:
    static constexpr int kTickMilliseconds = 1;
    static constexpr int kHoldMilliseconds = 1000;

    void Arm() {
        QTimer::singleShot(kTickMilliseconds, &context_, [this] { Tick(); });
    }
    // A step may go on for long, in a loop of its own, where the next ones come from the next tick.
    void Tick() {
        Arm();
        if (!waits_.hasExpired() || AnswerQuestion() || steps_.empty()) return;
        const testing_support::Step step = std::move(steps_.front());
        steps_.pop_front();
        step();
    }

    static QPoint MiddleOf(const QWidget& widget) { return {widget.width() / 2, widget.height() / 2}; }
    QWidget* Page() { return Top()->Handle()->page; }
    static QPoint On(Point place) { return {place.x, place.y}; }
    QWidget* Item(int id) { return Top()->Handle()->items.at(id); }
    // A control, of a sheet its own buttons, or a tool.
    QWidget* Button(int id) {
        platform::Window::Impl& state = *Top()->Handle();
        if (state.items.count(id) != 0) return state.items[id];
        if (state.screen) return state.screen->Strip().Find(id);
        auto* buttons = QApplication::activeModalWidget()->findChild<QDialogButtonBox*>();
        return buttons->button(id == platform::kIdOk ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel);
    }
    TreeWidget& Tree() { return *dynamic_cast<TreeWidget*>(Top()->Handle()->control); }
    QPoint PlaceOf(TreeItem item) {
        const QRect text = Tree().visualItemRect(reinterpret_cast<TreeNode*>(item));
        return item == 0 ? Tree().viewport()->rect().bottomLeft() : text.center();
    }

    void SendMouse(QWidget* widget, QEvent::Type type, QPoint place,
                   Qt::MouseButton button = Qt::LeftButton) {
        if (type == QEvent::MouseButtonRelease) buttons_ = Qt::NoButton;
        if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick) buttons_ = button;
        const Qt::MouseButton cause = type == QEvent::MouseMove ? Qt::NoButton : button;
        QMouseEvent event(type, place, widget->mapToGlobal(place), cause, buttons_, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }
    void Click(QWidget* widget, QPoint place) {
        SendMouse(widget, QEvent::MouseButtonPress, place);
        SendMouse(widget, QEvent::MouseButtonRelease, place);
    }
    void DoubleClick(QWidget* widget, QPoint place) {
        Click(widget, place);
        SendMouse(widget, QEvent::MouseButtonDblClick, place);
        SendMouse(widget, QEvent::MouseButtonRelease, place);
    }
    void SendKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QWidget* frame = Top()->Handle()->frame;
        QWidget* target = frame->focusWidget() ? frame->focusWidget() : frame;
        QKeyEvent press(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(target, &press);
    }

    // True when the program asks something through a dialog of the desktop's, answered or not.
    bool AnswerQuestion() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        auto* box = qobject_cast<QMessageBox*>(dialog);
        if (!box && !qobject_cast<QFileDialog*>(dialog) && !qobject_cast<QPrintDialog*>(dialog)) return false;
        if (answers_.empty()) return true;
        const platform::MessageAnswer answer = answers_.front();
        answers_.pop_front();
        if (box) {
            AnswerBox(*box, answer);
        } else if (answer != platform::MessageAnswer::Ok) {
            dialog->reject();
        } else if (auto* printing = qobject_cast<QPrintDialog*>(dialog)) {
            PrintIntoFile(*printing);
        } else {
            dialog->accept();
        }
        return true;
    }
    // Without a display no name of what is printed is remembered, so that a folder is proposed.
    static void PrintIntoFile(QPrintDialog& dialog) {
        auto* file = dialog.findChild<QLineEdit*>("filename");
        if (file->text().endsWith('/')) file->setText(file->text() + "Plan.pdf");
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    }
    void AnswerBox(QMessageBox& box, platform::MessageAnswer answer) {
        constexpr QMessageBox::StandardButton kButtons[] = {QMessageBox::Ok, QMessageBox::Cancel,
                                                            QMessageBox::Yes, QMessageBox::No};
        QAbstractButton* button = box.button(kButtons[static_cast<size_t>(answer)]);
        const bool isSecond = box.defaultButton() && box.defaultButton() == box.button(QMessageBox::No);
        boxes_.push_back(
            {platform::qt::FromQt(box.text()), platform::qt::FromQt(box.windowTitle()), isSecond});
        button ? button->click() : box.done(0);
    }

    QObject context_;
    QDeadlineTimer waits_{0};
    Qt::MouseButtons buttons_ = Qt::NoButton;
    std::deque<testing_support::Step> steps_;
    std::deque<platform::MessageAnswer> answers_;
    std::vector<testing_support::SeenBox> boxes_;
};

}  // namespace

std::unique_ptr<testing_support::Hand> MakeHand() { return std::make_unique<QtHand>(); }

}  // namespace contract

int main(int count, char** arguments) {
    testing::InitGoogleMock(&count, arguments);
    if (!qEnvironmentVariableIsSet("INKWRIGHT_SHOW_TESTS")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("INKWRIGHT_SCREEN", "480x640");
    qputenv("CUPS_SERVER", "/nowhere");  // no test wastes real paper
    const platform::qt::Application application(count, arguments);
    return RUN_ALL_TESTS();
}
