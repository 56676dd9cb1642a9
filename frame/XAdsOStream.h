// XAdsOStream: typed printing to the command line, each item at once.
#pragma once

class XAdsOStream {
public:
    XAdsOStream& operator<<(const char* text);
    XAdsOStream& operator<<(int value);
    XAdsOStream& operator<<(long value);
    XAdsOStream& operator<<(double value);
    XAdsOStream& operator<<(const double* point);   // "(x,y,z)"

private:
    char m_unused = 0;
};
