#pragma once

#include "tests/component/ComponentTest.h"

namespace talmo::test {

class MediaKeyTapTest : public ComponentTest {};

}  // namespace talmo::test
