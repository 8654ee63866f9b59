#pragma once

#include "sparlow/platform/base/Geometry.h"

namespace sparlow {

/// The colours of a graph. Four schemes are built in: 0 is dark on white, the only one for paper,
/// and 1 to 3 are light on dark. A graph keeps a pointer to its scheme, which stays the host's.
/// Threads: the window's.
struct GraphColors {
  explicit GraphColors(int number = 0) { LoadScheme(number); }

  /// Takes the colours of a built-in scheme; a number that none has gives those of scheme 0.
  void LoadScheme(int number);
  /// A colour for a curve that stands out from both backgrounds: the one given, if it does, else
  /// one mixed of it and the colour of text.
  COLORREF Visible(COLORREF color) const;

  COLORREF trace;        ///< the curve of a single series, and its caption
  COLORREF aux1;         ///< for hosts, as are aux2 to aux5
  COLORREF edgeFalling;  ///< falling edges of a waveform
  COLORREF edgeRising;   ///< rising edges of a waveform
  COLORREF aux2;
  COLORREF aux3;
  COLORREF text;          ///< labels and messages
  COLORREF backActive;    ///< background of the graph that is active in its frame
  COLORREF backInactive;  ///< background of the others
  COLORREF cursorLeft;
  COLORREF cursorRight;
  COLORREF aux4;
  COLORREF grid;
  COLORREF frame;      ///< frame of the plot
  COLORREF fixedAxis;  ///< heavy line along an axis whose range is fixed
  COLORREF aux5;
  int scheme;  ///< the number that LoadScheme was given
};

}  // namespace sparlow
