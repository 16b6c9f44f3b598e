#include "platform/qt/Roles.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace platform::qt {

namespace {

constexpr char kRole[] = "inkwrightRole";

// The toolkit counts menus and other popups neither among the program's windows nor among the children of the
// one that they belong to: nobody would find them there.
class Told : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;

    int childCount() const override {
        return QAccessibleWidget::childCount() + static_cast<int>(Popups().size());
    }
    QAccessibleInterface* child(int index) const override {
        const int own = QAccessibleWidget::childCount();
        if (index < own) return QAccessibleWidget::child(index);
        return QAccessible::queryAccessibleInterface(Popups().value(index - own));
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        const auto popup = wanted ? Popups().indexOf(wanted->object()) : -1;
        if (popup < 0) return QAccessibleWidget::indexOfChild(wanted);
        return QAccessibleWidget::childCount() + static_cast<int>(popup);
    }

  protected:
    ~Told() override = default;

  private:
    QObjectList Popups() const {
        QObjectList found;
        for (QObject* child : widget()->children()) {
            const auto* popup = qobject_cast<const QWidget*>(child);
            if (popup && popup->windowType() == Qt::Popup && popup->isVisible()) found.append(child);
        }
        return found;
    }
};

QAccessibleInterface* MakeTold(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    const QVariant role = widget ? widget->property(kRole) : QVariant();
    return role.isValid() ? new Told(widget, static_cast<QAccessible::Role>(role.toInt())) : nullptr;
}

}  // namespace

void GiveRole(QWidget& widget, QAccessible::Role role) { widget.setProperty(kRole, static_cast<int>(role)); }

void TellRoles() { QAccessible::installFactory(MakeTold); }

}  // namespace platform::qt
