#include <QAbstractButton>
#include <QDialog>
#include <QDialogButtonBox>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/PropertyDialog.h"
#include "platform/qt/Application.h"
#include "platform/qt/DialogFrame.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/HandheldPlace.h"
#include "platform/qt/ModalRun.h"
#include "platform/qt/Text.h"

namespace platform {

namespace {

constexpr int kTenthPoints = 80;

// The dialog around the pages, which fill theirs when they are shown for the first time.
class Sheet : public QDialog {
  public:
    Sheet(Window* owner, const std::wstring& caption, const std::vector<PropertyPage*>& pages);
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;
    ~Sheet() override;

    void Apply();

  private:
    void Add(PropertyPage& page);
    void Open(int index);

    const std::vector<PropertyPage*>& pages_;
    std::vector<PropertyPage*> opened_;
    QTabWidget tabs_;
};

Sheet::Sheet(Window* owner, const std::wstring& caption, const std::vector<PropertyPage*>& pages)
    : QDialog(qt::FrameOf(owner)), pages_(pages) {
    setWindowTitle(qt::ToQt(caption));
    // It is the bar in it that takes the keyboard, not both.
    tabs_.setFocusProxy(nullptr);
    tabs_.setFocusPolicy(Qt::NoFocus);
    setWindowModality(Qt::ApplicationModal);
    setFont(qt::FontOf(kTenthPoints, false));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    for (QAbstractButton* button : buttons->buttons()) button->setIcon({});  // as those of our own dialogs
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(&tabs_);
    layout->addWidget(buttons);
    for (PropertyPage* page : pages_) Add(*page);
    connect(&tabs_, &QTabWidget::currentChanged, this, [this](int index) { Open(index); });
    Open(0);
}

Sheet::~Sheet() {
    tabs_.disconnect(this);
    for (PropertyPage* page : opened_) qt::CloseWindow(*page);
}

void Sheet::Add(PropertyPage& page) {
    const resources::DialogTemplate* source = resources::FindDialog(page.TemplateId());
    auto* place = new QWidget;  // the tabs take it
    place->setFont(font());
    *page.Handle() = Window::Impl();
    if (source) place->setMinimumSize(qt::PixelsOf(*place, {0, 0, source->width, source->height}).size());
    tabs_.addTab(place, source ? qt::ToQt(source->caption) : QString());
}

void Sheet::Open(int index) {
    if (index < 0 || index >= static_cast<int>(pages_.size())) return;
    PropertyPage& page = *pages_[static_cast<size_t>(index)];
    const resources::DialogTemplate* source = resources::FindDialog(page.TemplateId());
    if (!source || std::find(opened_.begin(), opened_.end(), &page) != opened_.end()) return;
    opened_.push_back(&page);
    page.Handle()->Begin(page, nullptr, nullptr, tabs_.widget(index));
    qt::MakeItems(*tabs_.widget(index), page, *source);
    Guarded(page, [&page] { page.OnCreate(); });
}

void Sheet::Apply() {
    for (PropertyPage* page : opened_) Guarded(*page, [page] { page->OnApply(); });
}

}  // namespace

PropertyDialog::PropertyDialog(const std::wstring& caption, const std::vector<PropertyPage*>& pages)
    : caption_(caption), pages_(pages) {}

int PropertyDialog::RunModal(Window* owner) {
    if (qt::Application::The().IsEnding()) return kIdCancel;
    Sheet sheet(owner, caption_, pages_);
    const qt::SystemDialog running(owner, [&sheet] { sheet.reject(); });
    if (sheet.exec() != QDialog::Accepted) return kIdCancel;
    sheet.Apply();
    return kIdOk;
}

}  // namespace platform
