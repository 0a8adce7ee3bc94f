// Static objects of a library or program.
#pragma once

void ConstructStatics();

/// In the reverse order.
void DestroyStatics();
