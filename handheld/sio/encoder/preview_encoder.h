// Live-view frames: bare scan data for the program's fixed headers.
#pragma once
#include "handheld/sio/encoder/scan_writer.h"

namespace sio {

class CPreviewEncoder {
  public:
    // Replaces `scan` by the picture's scan data: the fixed steps of the frame headers, ended by FF D9 and
    // never longer than kMaxScanBytes. A picture too rich for that loses its finest detail first.
    void encode(const Picture& picture, Sampling sampling, std::vector<uint8_t>& scan);

  private:
    Planes m_planes;  // kept from frame to frame
};

}  // namespace sio
