// Writes shop.json: what the exporter of OpenTelemetry sends for one request of a small shop.
//   npm install @opentelemetry/sdk-trace-node @opentelemetry/exporter-trace-otlp-http \
//               @opentelemetry/resources @opentelemetry/api
//   node write_otlp.js > shop.json
const http = require('http');
const { context, trace, SpanKind, SpanStatusCode } = require('@opentelemetry/api');
const { NodeTracerProvider, BatchSpanProcessor } = require('@opentelemetry/sdk-trace-node');
const { OTLPTraceExporter } = require('@opentelemetry/exporter-trace-otlp-http');
const { resourceFromAttributes } = require('@opentelemetry/resources');

const wait = ms => new Promise(done => setTimeout(done, ms));
const bodies = [];
const server = http.createServer((request, answer) => {
  const parts = [];
  request.on('data', part => parts.push(part));
  request.on('end', () => {
    bodies.push(JSON.parse(Buffer.concat(parts)));
    answer.end('{}');
  });
});

const providers = [];
let url;
function service(name) {
  const provider = new NodeTracerProvider({
    resource: resourceFromAttributes({ 'service.name': name }),
    spanProcessors: [new BatchSpanProcessor(new OTLPTraceExporter({ url }))],
  });
  providers.push(provider);
  return provider.getTracer('sample');
}

async function span(tracer, name, kind, parent, work) {
  const made = tracer.startSpan(name, { kind }, parent);
  try {
    return await work(trace.setSpan(parent, made), made);
  } finally {
    made.end();
  }
}

// A call from one service to another has a span on either side.
function call(from, to, name, parent, work) {
  return span(from, name, SpanKind.CLIENT, parent, async inner => {
    await wait(1);
    await span(to, name, SpanKind.SERVER, inner, work);
  });
}

async function main() {
  await new Promise(done => server.listen(0, '127.0.0.1', done));
  url = `http://127.0.0.1:${server.address().port}/v1/traces`;
  const web = service('web');
  const orders = service('orders');
  const stock = service('stock');
  const payment = service('payment');
  const mail = service('mail');
  await span(web, 'POST /checkout', SpanKind.SERVER, context.active(), async root => {
    await span(web, 'read basket', SpanKind.INTERNAL, root, () => wait(3));
    await call(web, orders, 'orders.Place', root, async order => {
      for (let item = 0; item < 4; ++item)
        await call(orders, stock, 'stock.Reserve', order, () => wait(2 + item));
      await call(orders, payment, 'payment.Charge', order, async (charge, at) => {
        await span(payment, 'check card', SpanKind.INTERNAL, charge, () => wait(12));
        await span(payment, 'ask bank', SpanKind.CLIENT, charge, async (bank, asked) => {
          await wait(25);
          asked.setStatus({ code: SpanStatusCode.ERROR, message: 'no answer' });
        });
        await span(payment, 'ask bank again', SpanKind.CLIENT, charge, () => wait(9));
      });
      await span(orders, 'order placed', SpanKind.PRODUCER, order, async sent => {
        await span(mail, 'send receipt', SpanKind.CONSUMER, sent, () => wait(6));
      });
    });
    await span(web, 'render page', SpanKind.INTERNAL, root, () => wait(4));
  });
  for (const provider of providers)
    await provider.shutdown();
  server.close();
  const spans = bodies.flatMap(body => body.resourceSpans);
  spans.sort((a, b) => JSON.stringify(a.resource) < JSON.stringify(b.resource) ? -1 : 1);
  console.log(JSON.stringify({ resourceSpans: spans }, null, 1));
}

main();
