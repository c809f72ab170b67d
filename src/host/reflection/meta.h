#pragma once

/// The vocabulary of annotations: what classes say of themselves and of their properties, for the reflection, the models
/// and the panels to read. Functions are asked at each reading, and must not be empty unless said otherwise.
#include <host/reflection/meta/collections.h>
#include <host/reflection/meta/panels.h>
#include <host/reflection/meta/rows.h>
#include <host/reflection/meta/service.h>
