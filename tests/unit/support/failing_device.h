// A device that works for a number of bytes and then fails, in both directions.
#pragma once

#include <algorithm>
#include <ios>
#include <streambuf>

namespace ardane {

class AppareilDéfaillant : public std::streambuf {
 public:
  explicit AppareilDéfaillant(std::size_t octets_bons) : reste_(octets_bons) {}

 protected:
  int_type overflow(int_type c) override {
    if (reste_ == 0) return traits_type::eof();
    --reste_;
    return traits_type::not_eof(c);
  }
  std::streamsize xsputn(const char *, std::streamsize nombre) override {
    const auto pris = std::min(static_cast<std::size_t>(nombre), reste_);
    reste_ -= pris;
    return static_cast<std::streamsize>(pris);
  }
  int_type underflow() override {
    if (reste_ == 0) throw std::ios_base::failure("the device fails");
    --reste_;
    octet_ = '\1';
    setg(&octet_, &octet_, &octet_ + 1);
    return traits_type::to_int_type(octet_);
  }

 private:
  std::size_t reste_;
  char octet_ = '\0';
};

}  // namespace ardane
