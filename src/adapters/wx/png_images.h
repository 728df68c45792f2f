#pragma once

namespace catalogador {

/// Lets the toolkit read PNG pictures; may be called more than once.
void usePngImages();

}  // namespace catalogador
