#include <orn/base/init/inBuildInfoUtil.h>

#include <orn/base/except/assertions.h>

#include <mutex>
#include <utility>
#include <vector>

namespace Orn {

namespace {

struct Records {
  std::mutex lock;
  std::vector<std::unique_ptr<InBuildInfo>> infos;
};

Records& records() {
  static Records instance;
  return instance;
}

}  // namespace

InBuildInfo const& InBuildInfoUtil::registerInfo(OPtr<InBuildInfo> info) {
  return registerInfo(std::unique_ptr<InBuildInfo>(info.release()));
}

InBuildInfo const& InBuildInfoUtil::registerInfo(std::unique_ptr<InBuildInfo> info) {
  ORN_ASSERT(info != nullptr);
  Records& r = records();
  std::lock_guard<std::mutex> guard(r.lock);
  r.infos.push_back(std::move(info));
  return *r.infos.back();
}

std::size_t InBuildInfoUtil::getNbInfos() {
  Records& r = records();
  std::lock_guard<std::mutex> guard(r.lock);
  return r.infos.size();
}

InBuildInfo const& InBuildInfoUtil::getInfo(std::size_t index) {
  Records& r = records();
  std::lock_guard<std::mutex> guard(r.lock);
  ORN_ASSERT(index < r.infos.size());
  return *r.infos[index];
}

InBuildInfo const* InBuildInfoUtil::findInfo(std::string const& library) {
  Records& r = records();
  std::lock_guard<std::mutex> guard(r.lock);
  for (auto it = r.infos.rbegin(); it != r.infos.rend(); ++it) {
    if ((*it)->getLibrary() == library) return it->get();
  }
  return nullptr;
}

}  // namespace Orn
