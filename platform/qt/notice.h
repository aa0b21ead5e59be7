// A window that comes up by itself and takes no focus, as a screen reader meets it: a notification
// that is called what its labels say.
#pragma once

class QWidget;

namespace platform {

// To be called once, before there is a window.
void MakeNoticesKnown();
// Before the window is shown.
void BecomeNotice(QWidget& window);
// The reader says what the window says by now.
void AnnounceNotice(QWidget& window);

}  // namespace platform
