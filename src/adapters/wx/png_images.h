#pragma once

namespace catalogador::wx {

/// Lets the toolkit read PNG pictures; may be called more than once.
void usePngImages();

}  // namespace catalogador::wx
