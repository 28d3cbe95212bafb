#include <orn/primitives/formats/fmtVideoFormat.h>

#include <orn/base/containers/constIteratorSTL.h>
#include <orn/base/containers/set.h>
#include <orn/base/containers/vector.h>
#include <orn/primitives/formats/fmtFormatName.h>

#include <iomanip>
#include <sstream>
#include <string>
#include <typeinfo>

namespace Orn {

namespace {

// 25, 29.97, 23.976: three decimals without trailing zeros.
std::string formatRate(Rational const& rate) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(3) << double(rate.getNumerator()) / double(rate.getDenominator());
  std::string s = text.str();
  if (s.find('.') != std::string::npos) {
    s.erase(s.find_last_not_of('0') + 1);
    if (s.back() == '.') s.pop_back();
  }
  return s;
}

}  // namespace

LiString const FmtVideoFormat::TYPE("Video");

FmtVideoFormat::FmtVideoFormat(unsigned width, unsigned height, ImPixelFormat const& pixelFormat,
                               Rational pixelRatio, LiRateRegistry::Entry const& rate)
    : FmtImageFormat(width, height, pixelFormat, pixelRatio), _rate(rate) {}

FmtVideoFormat* FmtVideoFormat::clone() const { return new FmtVideoFormat(*this); }

LiString FmtVideoFormat::generateDesc() const {
  return generateDesc(getWidth(), getHeight(), getPixelFormat(), getPixelRatio(), _rate.getRate());
}

LiString FmtVideoFormat::generateDesc(unsigned width, unsigned height, ImPixelFormat const& pixelFormat,
                                      Rational const& pixelRatio, Rational const& rate) {
  std::string text = FmtImageFormat::generateDesc(width, height, pixelFormat, pixelRatio).str();
  text += ' ';
  text += formatRate(rate);
  text += "Hz";
  return LiString(std::move(text));
}

void FmtVideoFormat::dump(std::ostream& out) const {
  out << "FmtVideoFormat(";
  dumpImage(out);
  Rational const rate = _rate.getRate();
  out << ", rate " << (_rate.isNull() ? std::string("none") : _rate.getEnumName()) << ' ' << rate.getNumerator()
      << '/' << rate.getDenominator() << ")\n";
}

bool FmtVideoFormat::operator==(FmtFormatDesc::Native const& other) const {
  if (typeid(*this) != typeid(other)) return false;
  FmtVideoFormat const& o = dynamic_cast<FmtVideoFormat const&>(other);
  return hasSameImage(o) && _rate == o._rate;
}

ConstIterator<LiRateRegistry::Entry> FmtVideoFormat::getAllVideoRates() {
  LiRateRegistry const& rateReg = LiRateRegistry::getInstance();
  Set<LiRateRegistry::Entry> rates;
  for (ConstIterator<FmtFormatName> name = FmtFormatName::getFilteredList(FmtFormatName(), TYPE); !name.atEnd();
       ++name) {
    LiRateRegistry::Entry const rate = rateReg.get(name->getFieldValue(FmtFormatName::RATE_NAME).c_str());
    if (!rate.isNull()) rates.insert(rate);
  }
  return makeConstIterator(Vector<LiRateRegistry::Entry>(rates.begin(), rates.end()));
}

}  // namespace Orn
