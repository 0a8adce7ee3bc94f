// The words of both languages.
var FerolinWords = {
  en: {
    ok: 'GPS OK', noFix: 'No fix', silent: 'Receiver silent', unreached: 'Box not reached',
    connecting: 'Connecting…', full: 'Too many viewers', refused: 'Link has expired',
    everyone: 'Everyone sees this view',
    lookOnly: 'Look only: touching needs the control link',
    previousView: 'Previous view', nextView: 'Next view', mirror: 'Mirror for the windscreen',
    night: 'Night', engineViews: 'Views of the engine', settings: 'Settings', done: 'Done',
    language: 'Language', units: 'Units', dialUpTo: 'Dial up to',
    warnings: 'Warn at speed limits', on: 'On', off: 'Off',
    fullScreen: 'Full screen', switchOver: 'Switch',
    awake: 'Display',
    awakeHeld: 'The display stays awake while this page is open.',
    awakeRefused: 'This browser did not keep the display awake. Touch the page once, or set the ' +
      'display time-out of this device to “never”.',
    awakeInsecure: 'The display may go dark: browsers keep it awake only over https. Set the ' +
      'display time-out of this device to “never” while driving, or open the page through ' +
      'https (--web-tls).',
    awakeMissing: 'The display may go dark: this browser cannot keep it awake. Set the display ' +
      'time-out of this device to “never” while driving.',
    tiles: 'Tiles',
    tilesHelp: 'They stand in the order in which they are chosen; the first ones also stand ' +
      'beside the dial.',
    understood: 'Understood', fit: 'Fit to this screen', leave: 'Back'
  },
  ru: {
    ok: 'GPS OK', noFix: 'Нет сигнала', silent: 'Приёмник молчит',
    unreached: 'Нет связи с прибором',
    connecting: 'Соединение…', full: 'Нет свободных мест', refused: 'Ссылка устарела',
    everyone: 'Этот вид видят все',
    lookOnly: 'Только просмотр: для касаний нужна ссылка управления',
    previousView: 'Предыдущий вид', nextView: 'Следующий вид', mirror: 'Отражение для стекла',
    night: 'Ночь', engineViews: 'Виды программы', settings: 'Настройки', done: 'Готово',
    language: 'Язык', units: 'Единицы', dialUpTo: 'Шкала до',
    warnings: 'Предупреждать о скорости', on: 'Вкл.', off: 'Выкл.',
    fullScreen: 'Весь экран', switchOver: 'Переключить',
    awake: 'Экран',
    awakeHeld: 'Экран не гаснет, пока открыта эта страница.',
    awakeRefused: 'Браузер не удержал экран включённым. Коснитесь страницы один раз или ' +
      'отключите в этом устройстве гашение экрана.',
    awakeInsecure: 'Экран может погаснуть: браузеры удерживают его только через https. ' +
      'Отключите на время поездки гашение экрана в этом устройстве или откройте страницу ' +
      'через https (--web-tls).',
    awakeMissing: 'Экран может погаснуть: этот браузер не умеет его удерживать. Отключите на ' +
      'время поездки гашение экрана в этом устройстве.',
    tiles: 'Показания',
    tilesHelp: 'Они стоят в том порядке, в каком выбраны; первые стоят и рядом со шкалой.',
    understood: 'Понятно', fit: 'По размеру экрана', leave: 'Назад'
  }
};
