#include "zvdb/words.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>

namespace zv::zvdb {
namespace {

constexpr Word kSurnames[] = {
    {"陈", "陳", "chen"},     {"李", "李", "li"},    {"王", "王", "wang"},
    {"张", "張", "zhang"},    {"刘", "劉", "liu"},   {"杨", "楊", "yang"},
    {"赵", "趙", "zhao"},     {"黄", "黃", "huang"}, {"周", "周", "zhou"},
    {"吴", "吳", "wu"},       {"徐", "徐", "xu"},    {"孙", "孫", "sun"},
    {"胡", "胡", "hu"},       {"朱", "朱", "zhu"},   {"高", "高", "gao"},
    {"林", "林", "lin"},      {"何", "何", "he"},    {"郭", "郭", "guo"},
    {"罗", "羅", "luo"},      {"梁", "梁", "liang"}, {"宋", "宋", "song"},
    {"郑", "鄭", "zheng"},    {"谢", "謝", "xie"},   {"韩", "韓", "han"},
    {"唐", "唐", "tang"},     {"冯", "馮", "feng"},  {"董", "董", "dong"},
    {"萧", "蕭", "xiao"},     {"程", "程", "cheng"}, {"许", "許", "xu"},
    {"邓", "鄧", "deng"},     {"苏", "蘇", "su"},    {"欧阳", "歐陽", "ouyang"},
    {"司徒", "司徒", "situ"},
};

constexpr Word kGivenNames[] = {
    {"建国", "建國", "jianguo"},  {"志强", "志強", "zhiqiang"},  {"丽华", "麗華", "lihua"},
    {"淑芬", "淑芬", "shufen"},   {"明辉", "明輝", "minghui"},   {"晓东", "曉東", "xiaodong"},
    {"雅婷", "雅婷", "yating"},   {"文博", "文博", "wenbo"},     {"海燕", "海燕", "haiyan"},
    {"国栋", "國棟", "guodong"},  {"玉兰", "玉蘭", "yulan"},     {"俊杰", "俊傑", "junjie"},
    {"思远", "思遠", "siyuan"},   {"美玲", "美玲", "meiling"},   {"家豪", "家豪", "jiahao"},
    {"静", "靜", "jing"},         {"伟", "偉", "wei"},           {"敏", "敏", "min"},
    {"芳", "芳", "fang"},         {"磊", "磊", "lei"},           {"洋", "洋", "yang"},
    {"雪梅", "雪梅", "xuemei"},   {"红梅", "紅梅", "hongmei"},   {"立新", "立新", "lixin"},
    {"永康", "永康", "yongkang"}, {"慧敏", "慧敏", "huimin"},    {"子涵", "子涵", "zihan"},
    {"振宇", "振宇", "zhenyu"},   {"春生", "春生", "chunsheng"}, {"佩珊", "佩珊", "peishan"},
    {"宗翰", "宗翰", "zonghan"},  {"怡君", "怡君", "yijun"},     {"卫东", "衛東", "weidong"},
    {"爱华", "愛華", "aihua"},    {"书瑶", "書瑤", "shuyao"},    {"浩然", "浩然", "haoran"},
};

constexpr Word kCompanyStems[] = {
    {"云岫", "雲岫", "yunxiu"},   {"恒砺", "恆礪", "hengli"},
    {"瀚泽", "瀚澤", "hanze"},    {"启明川", "啟明川", "qimingchuan"},
    {"鼎沐", "鼎沐", "dingmu"},   {"卓屿", "卓嶼", "zhuoyu"},
    {"嘉树", "嘉樹", "jiashu"},   {"锦渊", "錦淵", "jinyuan"},
    {"朗晴", "朗晴", "langqing"}, {"安澜", "安瀾", "anlan"},
    {"宏稷", "宏稷", "hongji"},   {"百川汇", "百川匯", "baichuanhui"},
    {"睿衡", "睿衡", "ruiheng"},  {"翼程", "翼程", "yicheng"},
    {"松霖", "松霖", "songlin"},  {"凯沣", "凱灃", "kaifeng"},
    {"绿原", "綠原", "lvyuan"},   {"天栎", "天櫟", "tianli"},
    {"仁禾", "仁禾", "renhe"},    {"博雁", "博雁", "boyan"},
    {"新砚", "新硯", "xinyan"},   {"金穗源", "金穗源", "jinsuiyuan"},
    {"东篱", "東籬", "dongli"},   {"盛潮", "盛潮", "shengchao"},
    {"星棠", "星棠", "xingtang"}, {"华筠", "華筠", "huayun"},
    {"若水", "若水", "ruoshui"},  {"同舟", "同舟", "tongzhou"},
    {"广陌", "廣陌", "guangmo"},  {"诚枫", "誠楓", "chengfeng"},
    {"德霁", "德霽", "deji"},     {"泰垣", "泰垣", "taiyuan"},
    {"瑞昀", "瑞昀", "ruiyun"},   {"远澄", "遠澄", "yuancheng"},
    {"永旸", "永暘", "yongyang"}, {"九畹", "九畹", "jiuwan"},
};

constexpr Word kTrades[] = {
    {"精密机械", "精密機械", "jx"}, {"电子科技", "電子科技", "dz"},
    {"食品", "食品", "sp"},         {"纺织", "紡織", "fz"},
    {"国际物流", "國際物流", "wl"}, {"建材", "建材", "jc"},
    {"化工", "化工", "hg"},         {"软件", "軟體", "rj"},
    {"医疗器械", "醫療器材", "yl"}, {"贸易", "貿易", "my"},
    {"印刷包装", "印刷包裝", "ys"}, {"汽车零部件", "汽車零件", "qc"},
    {"环保工程", "環保工程", "hb"}, {"文化传播", "文化傳播", "wh"},
    {"农业科技", "農業科技", "ny"}, {"家具制造", "家具製造", "jj"},
    {"酒店管理", "飯店管理", "jd"}, {"信息技术", "資訊", "xx"},
};

constexpr Word kCompanyForms[] = {
    {"有限公司", "有限公司", ""},
    {"股份有限公司", "股份有限公司", ""},
    {"有限责任公司", "企業有限公司", ""},
    {"集团有限公司", "實業有限公司", ""},
    {"厂", "工廠", ""},
};

constexpr Word kStreets[] = {
    {"中山路", "中山路", ""},     {"人民大道", "民生路", ""},       {"解放北路", "忠孝東路", ""},
    {"科技园路", "科學園路", ""}, {"滨江大道", "濱江街", ""},       {"建设西路", "建國南路", ""},
    {"文昌街", "文昌街", ""},     {"工业园三期", "工業區三路", ""}, {"和平路", "和平東路", ""},
    {"长江路", "長安街", ""},     {"学院路", "大學路", ""},         {"迎宾大道", "迎賓道", ""},
};

// Those that write in the traditional script stand last.
constexpr City kCities[] = {
    {"", "北京市", "北京", "010", false},
    {"", "上海市", "上海", "021", false},
    {"", "天津市", "天津", "022", false},
    {"", "重庆市", "重庆", "023", false},
    {"广东省", "广州市", "广州", "020", false},
    {"广东省", "深圳市", "深圳", "0755", false},
    {"广东省", "东莞市", "东莞", "0769", false},
    {"广东省", "佛山市", "佛山", "0757", false},
    {"浙江省", "杭州市", "杭州", "0571", false},
    {"浙江省", "宁波市", "宁波", "0574", false},
    {"浙江省", "温州市", "温州", "0577", false},
    {"江苏省", "南京市", "南京", "025", false},
    {"江苏省", "苏州市", "苏州", "0512", false},
    {"江苏省", "无锡市", "无锡", "0510", false},
    {"福建省", "厦门市", "厦门", "0592", false},
    {"福建省", "泉州市", "泉州", "0595", false},
    {"山东省", "青岛市", "青岛", "0532", false},
    {"山东省", "济南市", "济南", "0531", false},
    {"湖北省", "武汉市", "武汉", "027", false},
    {"湖南省", "长沙市", "长沙", "0731", false},
    {"四川省", "成都市", "成都", "028", false},
    {"陕西省", "西安市", "西安", "029", false},
    {"河南省", "郑州市", "郑州", "0371", false},
    {"安徽省", "合肥市", "合肥", "0551", false},
    {"辽宁省", "大连市", "大连", "0411", false},
    {"辽宁省", "沈阳市", "沈阳", "024", false},
    {"黑龙江省", "哈尔滨市", "哈尔滨", "0451", false},
    {"云南省", "昆明市", "昆明", "0871", false},
    {"广西壮族自治区", "南宁市", "南宁", "0771", false},
    {"新疆维吾尔自治区", "乌鲁木齐市", "乌鲁木齐", "0991", false},
    {"香港", "九龍", "香港", "00852", true},
    {"香港", "新界", "香港", "00852", true},
    {"澳門", "氹仔", "澳門", "00853", true},
    {"臺灣", "臺北市", "臺北", "02", true},
    {"臺灣", "臺中市", "臺中", "04", true},
    {"臺灣", "高雄市", "高雄", "07", true},
};

constexpr Department kDepartments[] = {
    {"销售部", "XS", "銷售部"}, {"客户服务部", "KF", "客戶服務部"},
    {"财务部", "CW", "財務部"}, {"人力资源部", "RL", "人力資源部"},
    {"生产部", "SC", "生產部"}, {"信息部", "XX", "資訊部"},
};

constexpr Word kTaskTitles[] = {
    {"准备季度销售报告", "準備季度銷售報告", ""},
    {"核对供应商对账单", "核對供應商對帳單", ""},
    {"更新产品报价单", "更新產品報價單", ""},
    {"整理合同档案", "整理合約檔案", ""},
    {"跟进逾期货款", "跟進逾期貨款", ""},
    {"安排新员工入职培训", "安排新進員工教育訓練", ""},
    {"检查仓库安全通道", "檢查倉庫安全通道", ""},
    {"回复客户投诉", "回覆客戶投訴", ""},
    {"预订展会摊位", "預訂展覽攤位", ""},
    {"续签办公楼租约", "續簽辦公室租約", ""},
    {"申报增值税", "申報營業稅", ""},
    {"验收办公设备", "驗收辦公設備", ""},
    {"编写部门工作总结", "撰寫部門工作總結", ""},
    {"测试新版订单系统", "測試新版訂單系統", ""},
    {"联系物流公司改期", "聯絡貨運公司改期", ""},
    {"修订员工手册", "修訂員工手冊", ""},
    {"办理出口报关手续", "辦理出口報關手續", ""},
    {"补充样品库存", "補充樣品庫存", ""},
};

constexpr Word kTaskContents[] = {
    {"请先与财务部核对数据，再交部门经理签字。", "請先與財務部核對資料，再交部門經理簽名。", ""},
    {"资料放在共享文件夹“待办”里，完成后发邮件通知。",
     "資料放在共用資料夾「待辦」裡，完成後寄信通知。", ""},
    {"优先处理金额较大的三笔。", "優先處理金額較大的三筆。", ""},
    {"上次遗留的问题：附件缺少盖章页，需要补齐。", "上次遺留的問題：附件缺少用印頁，需要補齊。",
     ""},
    {"如有困难及时反馈，不要拖到最后一天。", "如有困難請及時反映，不要拖到最後一天。", ""},
    {"需要两个人配合，预计半天完成。", "需要兩個人配合，預計半天完成。", ""},
    {"", "", ""},
};

constexpr Word kDiaryTitles[] = {
    {"部门周会记要", "部門週會紀要", ""},
    {"出差见闻", "出差見聞", ""},
    {"今日工作小结", "今日工作小結", ""},
    {"学习笔记：谈判技巧", "學習筆記：談判技巧", ""},
    {"与同事讨论新流程", "與同事討論新流程", ""},
    {"值班记录", "值班紀錄", ""},
    {"展会第一天", "展覽第一天", ""},
    {"想法：改进报价模板", "想法：改進報價範本", ""},
};

constexpr Word kDiaryContents[] = {
    {"上午整理资料，下午开会，讨论了下个月的计划。", "上午整理資料，下午開會，討論了下個月的計畫。",
     ""},
    {"路上堵车，迟到十分钟；以后提前半小时出门。", "路上塞車，遲到十分鐘；以後提早半小時出門。",
     ""},
    {"客户对交货期最关心，价格倒在其次。", "客戶對交貨期最關心，價格倒在其次。", ""},
    {"系统运行正常，没有异常情况。", "系統運作正常，沒有異常情況。", ""},
    {"记下三条：先听、再问、最后报价。", "記下三條：先聽、再問、最後報價。", ""},
};

constexpr Word kVisitTitles[] = {
    {"--拜访记录", "--拜訪紀錄", ""}, {"--电话回访", "--電話回訪", ""},
    {"--来访接待", "--來訪接待", ""}, {"--合同洽谈", "--合約洽談", ""},
    {"--售后服务", "--售後服務", ""},
};

constexpr Word kVisitContents[] = {
    {"介绍了新产品，对方要求寄样品。", "介紹了新產品，對方要求寄樣品。", ""},
    {"对方采购经理换人，约下周再谈。", "對方採購經理換人，約下週再談。", ""},
    {"参观了生产线，对质量表示满意。", "參觀了生產線，對品質表示滿意。", ""},
    {"讨论付款方式，希望改为月结三十天。", "討論付款方式，希望改為月結三十天。", ""},
    {"反映上一批货包装破损，答应补发。", "反映上一批貨包裝破損，答應補寄。", ""},
    {"确认明年框架合同的数量。", "確認明年框架合約的數量。", ""},
};

constexpr Word kVisitResults[] = {
    {"有意向", "有意願", ""},     {"待报价", "待報價", ""}, {"已签约", "已簽約", ""},
    {"暂无需求", "暫無需求", ""}, {"需上门", "需到府", ""},
};

}  // namespace

std::span<const Word> Surnames() {
    return kSurnames;
}
std::span<const Word> GivenNames() {
    return kGivenNames;
}
std::span<const Word> CompanyStems() {
    return kCompanyStems;
}
std::span<const Word> Trades() {
    return kTrades;
}
std::span<const Word> CompanyForms() {
    return kCompanyForms;
}
std::span<const Word> Streets() {
    return kStreets;
}
std::span<const City> Cities() {
    return kCities;
}
std::span<const City> CitiesOf(bool traditional) {
    static_assert(std::ranges::is_partitioned(kCities, std::logical_not<>(), &City::traditional));
    const auto first = static_cast<std::size_t>(
        std::ranges::find(kCities, true, &City::traditional) - std::begin(kCities));
    return traditional ? Cities().subspan(first) : Cities().first(first);
}
std::span<const Department> Departments() {
    return kDepartments;
}
std::span<const Word> TaskTitles() {
    return kTaskTitles;
}
std::span<const Word> TaskContents() {
    return kTaskContents;
}
std::span<const Word> DiaryTitles() {
    return kDiaryTitles;
}
std::span<const Word> DiaryContents() {
    return kDiaryContents;
}
std::span<const Word> VisitTitles() {
    return kVisitTitles;
}
std::span<const Word> VisitContents() {
    return kVisitContents;
}
std::span<const Word> VisitResults() {
    return kVisitResults;
}

}  // namespace zv::zvdb
