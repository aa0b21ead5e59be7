// Put in front of every source of the plain rooms: no Qt may even be in sight of their compiler.
#pragma once

#if __has_include(<QString>) || __has_include(<QtCore/QString>)
#error "Qt is in sight of a room that must compile without it"
#endif
