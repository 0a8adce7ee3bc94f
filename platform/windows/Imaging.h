// The imaging library of the device over the desktop's imaging component.
#pragma once

namespace handheld {

/// Loads what decoding a picture needs, so that later a thread can decode one while the system
/// holds its loader lock. Stays loaded until the engine leaves COM.
void LoadImaging();

}  // namespace handheld
