#pragma once
/// Number of the catalogue among the library's resources; the resource compiler reads it too.
#define CATALOGUE_RESOURCE 1
