#pragma once

namespace machine {

/// Whether somebody sits before a screen. Where nobody does no box is shown: it would wait for ever.
enum class Audience { User, Nobody };

} // namespace machine
