// The one place where Qt events become messages.
#pragma once

namespace kv::win
{
// Starts the translation for the application object that there is. Cheap when done already.
void EnsureTranslator();
} // namespace kv::win
