#include "platform/qt/notice.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>
#include <QStringList>
#include <QVariant>

namespace platform {
namespace {

constexpr const char* kIsNotice = "isNotice";

// Qt 6.4 tells no reader of an alert on Linux; of what comes to be seen it does, and readers say
// what is a notification.
class WindowInterface : public QAccessibleWidget {
 public:
  explicit WindowInterface(QWidget* window) : QAccessibleWidget(window) {}

  QAccessible::Role role() const override {
    return IsNotice() ? QAccessible::Notification : QAccessibleWidget::role();
  }

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name || !IsNotice()) return QAccessibleWidget::text(kind);
    QStringList said;
    for (const QLabel* label : widget()->findChildren<const QLabel*>()) {
      const QString text = label->text();
      if (!text.isEmpty()) said << (text.endsWith(u'.') ? text.chopped(1) : text);
    }
    return said.join(QStringLiteral(". "));
  }

 private:
  bool IsNotice() const { return widget()->property(kIsNotice).toBool(); }
};

QAccessibleInterface* MakeInterface(const QString& className, QObject* object) {
  auto* const widget = qobject_cast<QWidget*>(object);
  const bool isWindow = widget != nullptr && widget->isWindow();
  return isWindow && className == QLatin1String("QWidget") ? new WindowInterface(widget) : nullptr;
}

void Tell(QWidget& window, QAccessible::Event event) {
  QAccessibleEvent told(&window, event);
  QAccessible::updateAccessibility(&told);
}

}  // namespace

void MakeNoticesKnown() { QAccessible::installFactory(MakeInterface); }

void BecomeNotice(QWidget& window) { window.setProperty(kIsNotice, true); }

void AnnounceNotice(QWidget& window) {
  Tell(window, QAccessible::Alert);
  Tell(window, QAccessible::ObjectShow);
}

}  // namespace platform
